// The add-on's three dialogs as windows: a person's clicks, keys and menu choices reach the add-on through
// the host's entry points, what the add-on changes in the model shows after each action, and every window
// draws its labels, greys what is greyed out and shows its list.
#include "desktop/DialogWindows.h"
#include "desktop/UserActions.h"
#include "gui/DialogExportOptions.h"

#include <support/GuiDescription.h>
#include <support/MainDialogTest.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QImage>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QToolButton>

#include <algorithm>
#include <functional>
#include <stdexcept>

using namespace vantix::host;
using namespace vantix::vtxutiltools;
namespace desktop = vantix::host::desktop;
using ::testing::ElementsAre;

namespace
{

// The lightness of the darkest pixel of the rectangle, and whether it holds more than one colour (ink).
int Darkest(const QImage& image, const QRect& rect)
{
    int darkest = 255;
    for (int y = rect.top(); y <= rect.bottom(); ++y)
        for (int x = rect.left(); x <= rect.right(); ++x)
            darkest = std::min(darkest, QColor(image.pixel(x, y)).lightness());
    return darkest;
}

bool HasInk(const QImage& image, const QRect& rect)
{
    for (int y = rect.top(); y <= rect.bottom(); ++y)
        for (int x = rect.left(); x <= rect.right(); ++x)
            if (image.pixel(x, y) != image.pixel(rect.topLeft()))
                return true;
    return false;
}

class DialogWindowsTest : public testsupport::DialogMainTest
{
protected:
    void SetUp() override
    {
        DialogMainTest::SetUp();
        desktop::SetWindowRefresher([this] { m_windows.sync(); });
        m_windows.sync();
    }
    void TearDown() override
    {
        desktop::SetWindowRefresher({});
        DialogMainTest::TearDown();
    }

    template <class Widget = QWidget>
    Widget* Shown(int control) const
    {
        if (auto* widget = qobject_cast<Widget*>(m_windows.widget(control)))
            return widget;
        throw std::logic_error("no widget of that kind for control " + std::to_string(control));
    }
    void Click(int control) const { QTest::mouseClick(Shown(control), Qt::LeftButton); }
    void ClickRow(int list, int row, Qt::KeyboardModifiers keys = {}) const
    {
        auto* widget = Shown<QListWidget>(list);
        QTest::mouseClick(widget->viewport(), Qt::LeftButton, keys,
                          widget->visualItemRect(widget->item(row)).center());
    }
    void Type(int field, const QString& text, bool confirm = true) const
    {
        auto* edit = Shown<QLineEdit>(field);
        edit->selectAll();
        QTest::keyClicks(edit, text);
        if (confirm)
            QTest::keyClick(edit, Qt::Key_Return);
    }
    QAbstractButton* DialogButton(int dialog, QDialogButtonBox::StandardButton which) const
    {
        return m_windows.window(dialog)->findChild<QDialogButtonBox*>()->button(which);
    }

    desktop::DialogWindows m_windows{nullptr};
};

TEST_F(DialogWindowsTest, ClicksKeysAndMenuChoicesReachTheAddOnAndItsChangesShow)
{
    QDialog* main = m_windows.window(Dialog1Manager);
    ASSERT_TRUE(main && main->isVisible());
    EXPECT_EQ(std::make_pair(QString("Key Frame Animation"), Qt::NonModal),
              std::make_pair(main->windowTitle(), main->windowModality()));
    for (int i = 0; i < 3; ++i)
        Click(AppendKeyFrame_BTN_D1);
    auto* list = Shown<QListWidget>(KeyFrameList_MLST_D1);
    ASSERT_EQ(3, list->count());
    EXPECT_FALSE(Shown(Apply_BTN_D1)->isEnabled()) << "nothing selected";

    ClickRow(KeyFrameList_MLST_D1, 1);
    ClickRow(KeyFrameList_MLST_D1, 2, Qt::ControlModifier);
    EXPECT_THAT(guiElement(KeyFrameList_MLST_D1).selected, ElementsAre(2, 3));
    ClickRow(KeyFrameList_MLST_D1, 0);
    EXPECT_THAT(guiElement(KeyFrameList_MLST_D1).selected, ElementsAre(1));
    EXPECT_TRUE(Shown(Apply_BTN_D1)->isEnabled());
    EXPECT_EQ(dialog().keyFrameModel().dataList().at(0).name,
              Shown<QLineEdit>(ViewName_TF_D1)->text().toStdString());
    Type(ViewName_TF_D1, "Wing");
    EXPECT_EQ("Wing", dialog().keyFrameModel().dataList().at(0).name);
    EXPECT_EQ(QString::fromStdString(guiElement(KeyFrameList_MLST_D1).items[0]), list->item(0)->text());
    // A frame count typed and left: it is entered as the focus goes.
    main->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(main));
    Shown(FrameCount_TF_D1)->setFocus();
    Type(FrameCount_TF_D1, "7", false);
    Shown(ViewName_TF_D1)->setFocus();
    EXPECT_EQ(7u, dialog().keyFrameModel().dataList().at(0).frameCount);

    QTest::keyClick(Shown<QComboBox>(Destination_OPT_D1), Qt::Key_Down);
    EXPECT_EQ(ToFile, dialog().settings().destination);

    // Options > Fade In, through the menu bar and the menu it opens.
    QAction* fadeIn = m_windows.action(MenuEntry("Fade &In"));
    QMenuBar* bar = main->findChild<QMenuBar*>();
    auto* options = qobject_cast<QMenu*>(m_windows.action(MenuEntry("&Options"))->menu());
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(options->menuAction()).center());
    ASSERT_TRUE(options->isVisible());
    QTest::mouseClick(options, Qt::LeftButton, {}, options->actionGeometry(fadeIn).center());
    EXPECT_TRUE(dialog().settings().fadeIn && fadeIn->isChecked());

    // The add-on's own changes, shown at the next sync: its list emptied and greyed out, then a selection.
    pressButton(Clear_BTN_D1);
    runOnIdleUntilEmpty();
    m_windows.sync();
    EXPECT_EQ(QString::fromStdString(guiElement(KeyFrameList_MLST_D1).items.at(0)), list->item(0)->text());
    EXPECT_FALSE(list->isEnabled() || Shown(Clear_BTN_D1)->isEnabled());
    ShowKeyFrames({5, 5}, {2});
    m_windows.sync();
    EXPECT_TRUE(list->isEnabled() && !list->item(0)->isSelected() && list->item(1)->isSelected());

    main->close(); // the close box
    EXPECT_FALSE(guiElement(Dialog1Manager).up || main->isVisible());
}

TEST_F(DialogWindowsTest, TimeOptionsIsModalAndItsRadiosSpinArrowsAndButtonsReachTheAddOn)
{
    m_windows.action(MenuEntry("Time &Animation Options..."))->trigger();
    QDialog* options = m_windows.window(Dialog3Manager);
    ASSERT_TRUE(options && options->isVisible());
    EXPECT_EQ(Qt::ApplicationModal, options->windowModality());
    QTest::mouseClick(Shown(animationOperation_RADIO_D3)->findChildren<QRadioButton*>().at(1), Qt::LeftButton,
                      {}, QPoint(8, 8));
    EXPECT_EQ(2, guiElement(animationOperation_RADIO_D3).choice);
    auto* cycles = Shown<QLineEdit>(numCycles_TFS_D3);
    const std::string before = guiElement(numCycles_TFS_D3).text;
    QTest::mouseClick(cycles->parentWidget()->findChildren<QToolButton*>().at(0), Qt::LeftButton);
    EXPECT_EQ(std::to_string(std::stoi(before) + 1), cycles->text().toStdString());
    QTest::mouseClick(DialogButton(Dialog3Manager, QDialogButtonBox::Ok), Qt::LeftButton);
    EXPECT_FALSE(guiElement(Dialog3Manager).up || options->isVisible());
    EXPECT_EQ(Loop, dialog().settings().timeOptions.timeAnimationOperation);

    m_windows.action(MenuEntry("Time &Animation Options..."))->trigger();
    QTest::keyClick(options, Qt::Key_Escape); // Cancel
    EXPECT_FALSE(guiElement(Dialog3Manager).up || options->isVisible());
}

// Each dialog as the person sees it: every control with a label or entries has ink where it stands; a
// greyed button or label is drawn lighter than every usable one; each entry of a list is drawn.
TEST_F(DialogWindowsTest, EachDialogDrawsItsLabelsAndEntriesAndGreysWhatIsGreyedOut)
{
    ShowKeyFrames({10, 20}, {}); // Apply and Update greyed out
    // The dialogs are built when first opened: their identifiers are read after.
    const std::pair<const int*, std::function<void()>> shown[] = {
        {&Dialog1Manager, [] {}},
        {&Dialog3Manager, [] { chooseMenuItem(MenuEntry("Time &Animation Options...")); }},
        {&Dialog2Manager, [] { DialogExportOptions::launch([] {}); }}, // supersampling greyed out
    };
    for (const auto& [identifier, open] : shown)
    {
        open();
        const int dialog = *identifier;
        m_windows.sync();
        QDialog* window = m_windows.window(dialog);
        const QImage image = window->grab().toImage();
        // Over the buttons and labels: the darkest pixel of the palest greyed one, of the palest usable one.
        int greyed = 255, usable = 0;
        for (const int control : guiElement(dialog).children)
        {
            const GuiElement element = guiElement(control);
            if (element.kind == GuiKind::MenuBar)
                continue;
            SCOPED_TRACE(testsupport::Describe(control));
            QWidget* widget = m_windows.widget(control);
            const QRect area(widget->mapTo(window, QPoint()), widget->size());
            if (element.kind != GuiKind::TextField && element.kind != GuiKind::SpinTextField)
            {
                EXPECT_TRUE(HasInk(image, area));
            }
            if (element.kind == GuiKind::Button || element.kind == GuiKind::Label)
            {
                const int darkest = Darkest(image, area.adjusted(4, 4, -4, -4)); // inside a button's frame
                if (element.sensitive)
                    usable = std::max(usable, darkest);
                else
                    greyed = std::min(greyed, darkest);
            }
            auto* list = qobject_cast<QListWidget*>(widget);
            for (int row = 0; list && row < list->count(); ++row)
            {
                const QPoint viewport = list->viewport()->mapTo(window, QPoint());
                EXPECT_TRUE(HasInk(image, list->visualItemRect(list->item(row)).translated(viewport)));
            }
        }
        if (dialog != Dialog3Manager)
        {
            EXPECT_GT(greyed, usable);
        }
        if (dialog != Dialog1Manager)
            pressCancel(dialog);
    }
}

} // namespace
