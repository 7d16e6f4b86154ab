// A number text field's validator in a real host dialog: what it accepts, what it refuses and how it
// tells the user, and that the field always shows the accepted value afterwards.
#include "gui/TextFieldValidator.h"

#include <support/AddOnTest.h>

#include <VtxGUI.h>
#include <VtxUtil.h>
#include <vantix/host/Gui.h>
#include <vantix/host/Host.h>

#include <climits>
#include <limits>
#include <string>
#include <vector>

using namespace vantix::vtxutiltools;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

const std::string FrameCountMessage = "Invalid input. Input must be a number between 1 and 2147483647.";
const std::string SpeedMessage = "Invalid input. Input must be a number between 0.001 and 200.";

// The validator behind the field, as a dialog's text field callback reaches it.
TextFieldValidator<int>* intValidator = nullptr;
TextFieldValidator<double>* doubleValidator = nullptr;

int ValidateText(const char* text)
{
    return intValidator ? intValidator->validate(text) : doubleValidator->validate(text);
}

class TextFieldValidatorTest : public testsupport::AddOnTest
{
protected:
    void SetUp() override
    {
        AddOnTest::SetUp();
        static const int dialog =
            VtxGUIDialogCreateModeless(GuiId_MainWindow, 100, 40, "Validated", nullptr, nullptr, nullptr);
        static const int field = VtxGUITextFieldAdd(dialog, 5, 5, 50, 12, ValidateText);
        VtxGUIDialogLaunch(dialog);
        m_field = field;
        intValidator = nullptr;
        doubleValidator = nullptr;
    }

    std::string fieldText() const { return vantix::host::guiElement(m_field).text; }

    int m_field = GuiId_None;
};

} // namespace

TEST_F(TextFieldValidatorTest, FrameCountAcceptsANumberAtTheStartWithinTheBoundsAndRefusesTheRest)
{
    TextFieldValidator<int> frameCount(30);
    frameCount.setMinimum(1);
    frameCount.setMaximum(INT_MAX);
    frameCount.m_textFieldId = m_field;
    intValidator = &frameCount;
    const struct
    {
        std::string text;
        bool accepted;
        int value;
    } cases[] = {
        {"0", false, 30},          {"", false, 30},      {"abc", false, 30},
        {"-5", false, 30},         {"  42  ", true, 42}, {"12abc", true, 12},
        {"3.7", true, 3},          {"1", true, 1},       {"2147483647", true, INT_MAX},
        {"2147483648", false, 30}, {"x12", false, 30},
    };
    for (const auto& c : cases)
    {
        frameCount.m_value = 30;
        frameCount.updateTextField();
        vantix::host::clearUserMessages();
        EXPECT_EQ(c.accepted, vantix::host::enterText(m_field, c.text)) << c.text;
        EXPECT_EQ(c.value, frameCount.m_value) << c.text;
        EXPECT_EQ(std::to_string(c.value), fieldText()) << c.text;
        EXPECT_EQ(c.accepted ? std::vector<std::string>{} : std::vector<std::string>{FrameCountMessage},
                  vantix::host::errorMessages())
            << c.text;
    }
}

TEST_F(TextFieldValidatorTest, AnimationSpeedIncludesItsBoundsAndShowsSixSignificantDigits)
{
    TextFieldValidator<double> speed(30.0, 0.001, 200.0);
    speed.m_textFieldId = m_field;
    speed.updateTextField();
    EXPECT_EQ("30", fieldText());
    doubleValidator = &speed;
    const struct
    {
        std::string text;
        bool accepted;
        std::string shown;
    } cases[] = {
        {"0.0005", false, "30"},
        {"200", true, "200"},
        {"0.001", true, "0.001"},
        {"200.0001", false, "0.001"},
        {"12.3456789", true, "12.3457"},
        {"1e2", true, "100"},
        {"", false, "100"},
    };
    for (const auto& c : cases)
    {
        vantix::host::clearUserMessages();
        EXPECT_EQ(c.accepted, vantix::host::enterText(m_field, c.text)) << c.text;
        EXPECT_EQ(c.shown, fieldText()) << c.text;
        EXPECT_EQ(c.accepted ? std::vector<std::string>{} : std::vector<std::string>{SpeedMessage},
                  vantix::host::errorMessages())
            << c.text;
    }

    TextFieldValidator<double> unbounded(0.0);
    unbounded.m_textFieldId = m_field;
    for (const auto& [value, shown] : std::vector<std::pair<double, std::string>>{
             {1234567.0, "1.23457e+06"}, {123456.0, "123456"}, {0.0001, "0.0001"}, {0.00001, "1e-05"}})
    {
        unbounded.m_value = value;
        unbounded.updateTextField();
        EXPECT_EQ(shown, fieldText());
    }
}

TEST_F(TextFieldValidatorTest, MessageNamesOnlyTheBoundsInForce)
{
    TextFieldValidator<int> lower(5);
    lower.setMinimum(1);
    TextFieldValidator<int> upper(5);
    upper.setMaximum(10);
    TextFieldValidator<int> none(5);
    TextFieldValidator<double> noneDouble(5.0);
    EXPECT_FALSE(lower.validate("0"));
    EXPECT_FALSE(upper.validate("11"));
    EXPECT_FALSE(none.validate("abc"));
    EXPECT_FALSE(noneDouble.validate("-"));
    EXPECT_THAT(vantix::host::errorMessages(),
                ElementsAre("Invalid input. Input must be a number greater than or equal to 1.",
                            "Invalid input. Input must be a number less than or equal to 10.",
                            "Invalid input. Input must be a number.",
                            "Invalid input. Input must be a number."));
    EXPECT_EQ(5, lower.m_value);
    EXPECT_EQ(5, upper.m_value);
}

TEST_F(TextFieldValidatorTest, WithoutBoundsEveryNumberOfTheTypePasses)
{
    const TextFieldValidator<int> intValue(7);
    EXPECT_EQ(INT_MIN, intValue.m_minimum);
    EXPECT_EQ(INT_MAX, intValue.m_maximum);
    EXPECT_FALSE(intValue.m_hasMinimum || intValue.m_hasMaximum);
    TextFieldValidator<double> doubleValue(7.0);
    EXPECT_TRUE(doubleValue.validate("-1e300"));
    EXPECT_EQ(-1e300, doubleValue.m_value);
    EXPECT_TRUE(doubleValue.validate("1.7e308"));
    EXPECT_THAT(vantix::host::errorMessages(), IsEmpty());
}

TEST_F(TextFieldValidatorTest, SettingABoundMovesTheValueInsideIt)
{
    TextFieldValidator<int> raised(0);
    raised.m_textFieldId = m_field;
    raised.setMinimum(1);
    EXPECT_EQ(1, raised.m_value);
    EXPECT_EQ("1", fieldText());

    TextFieldValidator<int> lowered(50);
    lowered.m_textFieldId = m_field;
    lowered.setMaximum(10);
    EXPECT_EQ(10, lowered.m_value);
    EXPECT_EQ("10", fieldText());
    EXPECT_TRUE(lowered.m_hasMaximum);
    EXPECT_FALSE(lowered.m_hasMinimum);
}

TEST_F(TextFieldValidatorTest, AnUnboundValidatorChangesItsValueButWritesToNoField)
{
    VtxGUITextFieldSetString(m_field, "untouched");
    const long writesBefore = vantix::host::callCount("VtxGUITextFieldSetString");
    TextFieldValidator<int> unbound(3, 1, 9);
    EXPECT_TRUE(unbound.validate("8"));
    EXPECT_FALSE(unbound.validate("0"));
    unbound.setMaximum(5);
    EXPECT_EQ(5, unbound.m_value);
    EXPECT_EQ(writesBefore, vantix::host::callCount("VtxGUITextFieldSetString"));
    EXPECT_EQ("untouched", fieldText());
}
