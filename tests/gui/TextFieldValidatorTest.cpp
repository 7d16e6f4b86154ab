// A number text field's validator in a real host dialog: what it accepts, what it refuses and how it
// tells the user, and that the field always shows the accepted value afterwards.
#include "gui/TextFieldValidator.h"

#include <support/AddOnTest.h>

#include <VtxGUI.h>

#include <climits>
#include <functional>
#include <optional>
#include <string>

using namespace vantix::vtxutiltools;
using Texts = std::vector<std::string>;

namespace
{

const std::string Between1AndMax = "Invalid input. Input must be a number between 1 and 2147483647.";
const std::string SpeedRange = "Invalid input. Input must be a number between 0.001 and 200.";

// The validator behind the field, as a dialog's text field callback reaches it.
std::function<bool(const char*)> validate;

// A validator starting at 30, with both bounds given to the constructor, or either one set afterwards (which
// moves the value inside it), bound to the field; then the text typed into the field, unless there is none.
template <typename T>
struct Entry_s
{
    std::optional<T> minimum, maximum;
    const char* text;
    std::string shown, refusal; // no refusal when the text is accepted
};

class TextFieldValidatorTest : public testsupport::AddOnTest
{
protected:
    void SetUp() override
    {
        AddOnTest::SetUp();
        static const int dialog =
            VtxGUIDialogCreateModeless(GuiId_MainWindow, 100, 40, "Validated", nullptr, nullptr, nullptr);
        static const int field =
            VtxGUITextFieldAdd(dialog, 5, 5, 50, 12, [](const char* text) { return validate(text) ? 1 : 0; });
        VtxGUIDialogLaunch(dialog);
        m_field = field;
    }

    std::string FieldText() const { return vantix::host::guiElement(m_field).text; }

    template <typename T>
    void Check(const std::vector<Entry_s<T>>& entries)
    {
        for (const Entry_s<T>& e : entries)
        {
            SCOPED_TRACE(e.text ? e.text : "nothing typed");
            TextFieldValidator<T> validator = e.minimum && e.maximum
                                                  ? TextFieldValidator<T>(30, *e.minimum, *e.maximum)
                                                  : TextFieldValidator<T>(30);
            validator.bindTextField(m_field);
            if (e.minimum && !e.maximum)
                validator.setMinimum(*e.minimum);
            if (e.maximum && !e.minimum)
                validator.setMaximum(*e.maximum);
            validate = [&validator](const char* text) { return validator.validate(text); };
            vantix::host::clearUserMessages();
            const bool accepted = !e.text || vantix::host::enterText(m_field, e.text);
            EXPECT_EQ(
                std::make_tuple(e.refusal.empty(), e.shown, e.refusal.empty() ? Texts{} : Texts{e.refusal}),
                std::make_tuple(accepted, FieldText(), vantix::host::errorMessages()));
        }
    }

    int m_field = GuiId_None;
};

} // namespace

// An int reads the number at the start of the text; a double shows six significant digits.
TEST_F(TextFieldValidatorTest, AcceptsANumberWithinTheBoundsInForceAndTellsWhichOnRefusal)
{
    Check<int>({
        {1, INT_MAX, "0", "30", Between1AndMax},
        {1, INT_MAX, "2147483648", "30", Between1AndMax},
        {1, INT_MAX, "  42  ", "42", ""},
        {1, INT_MAX, "12abc", "12", ""},
        {1, INT_MAX, "1", "1", ""},
        {1, INT_MAX, "2147483647", "2147483647", ""},
        {40, {}, nullptr, "40", ""}, // raised to the new minimum
        {{}, 10, "11", "10", "Invalid input. Input must be a number less than or equal to 10."}, // lowered
        {{}, {}, "abc", "30", "Invalid input. Input must be a number."},
        {{}, {}, "-2147483648", "-2147483648", ""},
    });
    Check<double>({
        {0.001, 200.0, "0.0005", "30", SpeedRange},
        {0.001, 200.0, "200.0001", "30", SpeedRange},
        {0.001, 200.0, "200", "200", ""},
        {0.001, 200.0, "0.001", "0.001", ""},
        {0.001, 200.0, "12.3456789", "12.3457", ""},
        {{}, {}, "1.7e308", "1.7e+308", ""},
        {{}, {}, "1234567", "1.23457e+06", ""},
    });
}
