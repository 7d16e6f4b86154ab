// A person's session at the desktop, driven with real clicks, drags and keys: the demo data set loaded from
// the File menu, the add-on opened from the Animate menu, three views captured with the mouse turning the
// view between them, a name and a frame count typed in, an animation on screen cancelled half way from the
// status bar, a movie written through the export options dialog and a real file dialog, and the desktop
// closed by a signal to end the program. Each step is checked in the host's state; the main window's
// screenshot shows the page and the greyed menus.
#include "gui/DialogLayouts.h"

#include <support/AddOnTest.h>
#include <support/TempFolder.h>

#include "desktop/MainWindow.h"
#include "desktop/SignalClose.h"

#include <vantix/host/Export.h>

#include <QComboBox>
#include <QDialog>
#include <QFileDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTextBrowser>
#include <QTimer>

#include <csignal>
#include <functional>
#include <optional>
#include <set>
#include <tuple>

using namespace vantix::host;
using vantix::host::desktop::MainWindow;

namespace
{

class DesktopSessionTest : public testsupport::AddOnTest
{
protected:
    void SetUp() override
    {
        AddOnTest::SetUp();
        m_window = std::make_unique<MainWindow>();
        m_window->resize(1100, 760);
        m_window->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(m_window.get()));
    }

    // The add-on's dialog follows the host until its dropper closes it: let it.
    void TearDown() override
    {
        setPlotType(PlotType_Cartesian2D);
        runOnIdleUntilEmpty();
        m_window.reset();
        AddOnTest::TearDown();
    }

    // Opens the menu from the menu bar and clicks the entry, as a person does.
    void ChooseMenu(const std::string& menu, const std::string& entry)
    {
        QMenu* shown = m_window->menu(menu);
        QAction* action = m_window->menuEntry(menu, entry);
        ASSERT_TRUE(shown && action) << menu << " > " << entry;
        QMenuBar* bar = m_window->menuBar();
        QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(shown->menuAction()).center());
        ASSERT_TRUE(QTest::qWaitForWindowExposed(shown));
        QTest::mouseClick(shown, Qt::LeftButton, {}, shown->actionGeometry(action).center());
    }

    template <typename Widget = QWidget>
    Widget* ControlWidget(int control)
    {
        auto* widget = qobject_cast<Widget*>(m_window->dialogs().widget(control));
        EXPECT_TRUE(widget) << "control " << control;
        return widget;
    }

    void Click(int button) { QTest::mouseClick(ControlWidget(button), Qt::LeftButton); }

    // The button of a window with that label as the person reads it.
    template <typename Button>
    static Button* Labelled(QWidget* window, const std::string& label)
    {
        for (Button* button : window->findChildren<Button*>())
            if (readableLabel(button->text().toStdString()) == label)
                return button;
        ADD_FAILURE() << "no button " << label;
        return nullptr;
    }

    void ClickRadio(int radioBox, const std::string& label)
    {
        // On its round mark: a radio button takes clicks on its mark and label only, not beyond.
        auto* button = Labelled<QRadioButton>(ControlWidget(radioBox), label);
        QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
    }

    void Type(int field, const QString& text)
    {
        auto* edit = ControlWidget<QLineEdit>(field);
        edit->selectAll();
        QTest::keyClicks(edit, text);
        QTest::keyClick(edit, Qt::Key_Return);
    }

    // A drag across the page, turning the view.
    void Drag(QPoint by) { PageViewDrag(m_window->page(), m_window->page().rect().center(), by); }

    static void PageViewDrag(QWidget& page, QPoint from, QPoint by)
    {
        QTest::mousePress(&page, Qt::LeftButton, {}, from);
        for (int step = 1; step <= 4; ++step)
        {
            QMouseEvent move(QEvent::MouseMove, from + by * step / 4, page.mapToGlobal(from + by * step / 4),
                             Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(&page, &move);
        }
        QTest::mouseRelease(&page, Qt::LeftButton, {}, from + by);
    }

    // The next modal dialog of that kind the host opens is answered by this, once it is up.
    template <typename Dialog>
    static void WhenModal(std::function<void(Dialog*)> answer)
    {
        auto* timer = new QTimer;
        QObject::connect(timer, &QTimer::timeout,
                         [timer, answer]
                         {
                             if (auto* modal = qobject_cast<Dialog*>(QApplication::activeModalWidget()))
                             {
                                 timer->stop();
                                 timer->deleteLater();
                                 answer(modal);
                             }
                         });
        timer->start(20);
    }

    std::vector<std::string> Items() { return guiElement(KeyFrameList_MLST_D1).items; }

    std::unique_ptr<MainWindow> m_window;
    testsupport::TempFolder m_folder;
};

// How many distinct colours a picture holds: a drawn 3D view has hundreds, a blank one a few.
std::size_t Colours(const QImage& picture)
{
    std::set<QRgb> colours;
    for (int y = 0; y < picture.height(); y += 3)
        for (int x = 0; x < picture.width(); x += 3)
            colours.insert(picture.pixel(x, y));
    return colours.size();
}

TEST_F(DesktopSessionTest, CapturesViewsEditsThemAnimatesOnScreenCancelsAndWritesAMovie)
{
    EXPECT_FALSE(m_window->menuEntry("Animate", "Key Frame Animation...")->isEnabled()) << "no data yet";
    ChooseMenu("File", "Load Demo Data Set");
    ASSERT_TRUE(hasDataSet());
    const QImage screenshot = m_window->grab().toImage();
    EXPECT_GT(Colours(m_window->page().picture()), 200u) << "the 3D view is drawn";
    EXPECT_GT(Colours(screenshot), 200u);
    EXPECT_FALSE(m_window->menu("Tools")->isEnabled()) << "a menu with nothing in it is greyed";

    ChooseMenu("Animate", "Key Frame Animation...");
    ASSERT_TRUE(guiElement(Dialog1Manager).up && m_window->dialogs().window(Dialog1Manager)->isVisible());

    // Three views, the mouse turning the view before each.
    for (int view = 0; view < 3; ++view)
    {
        const double theta = vantix::host::view().theta;
        Drag({100, 0});
        EXPECT_NEAR(40.0, vantix::host::view().theta - theta, 1e-9) << "0.4 degrees a pixel";
        Click(AppendKeyFrame_BTN_D1);
    }
    ASSERT_EQ(3u, Items().size());

    // The second view gets a name and a frame count, typed in after a click on it in the list.
    auto* list = ControlWidget<QListWidget>(KeyFrameList_MLST_D1);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(1)).center());
    EXPECT_EQ(std::vector<int>{2}, guiElement(KeyFrameList_MLST_D1).selected);
    Type(ViewName_TF_D1, "Wing tip");
    Type(FrameCount_TF_D1, "10");
    EXPECT_NE(std::string::npos, Items()[1].find("Wing tip")) << Items()[1];
    EXPECT_EQ("Wing tip", list->item(1)->text().toStdString().substr(0, 8)) << "the list shows it at once";

    // On screen, cancelled from the status bar half way through the frames; a click elsewhere meanwhile
    // does nothing.
    QProgressBar* bar = m_window->status().bar();
    bool cancelled = false;
    const int redraws = redrawCount();
    QObject::connect(bar, &QProgressBar::valueChanged,
                     [&]
                     {
                         if (redrawCount() - redraws < 20 || cancelled)
                             return;
                         cancelled = true;
                         Click(Clear_BTN_D1);
                         QTest::mouseClick(m_window->status().cancelButton(), Qt::LeftButton);
                     });
    const long pictures = m_window->page().picturesDrawn();
    QString told;
    WhenModal<QMessageBox>(
        [&](QMessageBox* box)
        {
            told = box->text();
            QTest::mouseClick(box->button(QMessageBox::Ok), Qt::LeftButton);
        });
    Click(AnimateAll_BTN_D1);
    EXPECT_TRUE(cancelled);
    EXPECT_EQ("Animation canceled.", told.toStdString());
    const int drawn = redrawCount() - redraws;
    EXPECT_GE(drawn, 20);
    EXPECT_LT(drawn, 41) << "1 + 30 + 10 frames without the cancel";
    EXPECT_GE(m_window->page().picturesDrawn() - pictures, drawn) << "every frame was shown";
    EXPECT_EQ(3u, Items().size()) << "Clear was not pressed while the animation ran";
    EXPECT_FALSE(bar->isVisible());

    // To a file: the destination, the export options dialog and the file dialog.
    QTest::keyClick(ControlWidget<QComboBox>(Destination_OPT_D1), Qt::Key_Down);
    ASSERT_EQ(2, guiElement(Destination_OPT_D1).choice);
    Click(AnimateAll_BTN_D1);
    ASSERT_TRUE(guiElement(Dialog2Manager).up);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(m_window->dialogs().window(Dialog2Manager)));
    auto* format = ControlWidget<QComboBox>(Format_OPT_D2);
    const int rasterMetafile = format->findText("Raster Metafile");
    ASSERT_GE(rasterMetafile, 0);
    while (format->currentIndex() != rasterMetafile)
        QTest::keyClick(format, format->currentIndex() < rasterMetafile ? Qt::Key_Down : Qt::Key_Up);
    ClickRadio(Width_RADIO_D2, "Enter Width:");
    Type(Width_TF_D2, "96");
    const std::string movie = (m_folder.path() / "flight.rm").string();
    WhenModal<QFileDialog>(
        [&](QFileDialog* files)
        {
            QLineEdit* name = files->findChild<QLineEdit*>("fileNameEdit");
            name->setText(QString::fromStdString(movie));
            QTest::keyClick(name, Qt::Key_Return);
        });
    QTest::mouseClick(Labelled<QPushButton>(m_window->dialogs().window(Dialog2Manager), "OK"),
                      Qt::LeftButton);
    const RasterMetafileContents written = readRasterMetafile(movie);
    EXPECT_EQ(41u, written.frames.size());
    EXPECT_EQ(96, written.width);

    // Help opens the add-on's page in the desktop's help window, whose links lead to the other pages.
    QTest::mouseClick(Labelled<QPushButton>(m_window->dialogs().window(Dialog1Manager), "Help"),
                      Qt::LeftButton);
    QTextBrowser* help = m_window->help().browser();
    ASSERT_TRUE(m_window->help().isVisible() && helpRequests().back().opened);
    EXPECT_EQ("key_frame_animation.html", help->source().fileName().toStdString());
    help->setSource(help->source().resolved(QUrl("export_options.html")));
    EXPECT_THAT(help->toPlainText().toStdString(), ::testing::HasSubstr("Export Options"));
}

// The menus' own file commands: a recording of a desktop session replays it, and a picture is written.
TEST_F(DesktopSessionTest, RecordsASessionThatReplaysAndExportsThePicture)
{
    const std::string macro = (m_folder.path() / "session.mcr").string(),
                      picture = (m_folder.path() / "view.png").string();
    std::vector<std::string> answers = {macro, picture, macro};
    m_window->setFileChooser(
        [&](bool, const std::string&, const std::string&)
        {
            const std::string answer = answers.front();
            answers.erase(answers.begin());
            return std::optional<std::string>(answer);
        });
    ChooseMenu("Scripting", "Record Macro...");
    ChooseMenu("File", "Load Demo Data Set");
    Drag({30, -20});
    QWheelEvent wheel(QPointF(50, 50), m_window->page().mapToGlobal(QPointF(50, 50)), {}, {0, 240},
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&m_window->page(), &wheel);
    const ViewState turned = vantix::host::view();
    ChooseMenu("Scripting", "Stop Recording");
    ChooseMenu("File", "Export Picture...");
    EXPECT_EQ(1050, readPng(picture).width) << "the frame at its size on the screen";

    reset();
    addFrame();
    ChooseMenu("Scripting", "Play Macro...");
    const ViewState replayed = vantix::host::view();
    EXPECT_TRUE(hasDataSet());
    EXPECT_EQ(std::make_tuple(turned.psi, turned.theta, turned.width),
              std::make_tuple(replayed.psi, replayed.theta, replayed.width));
}

// A signal to end the program, while a message waits for an answer: the message goes, then the window.
TEST_F(DesktopSessionTest, ASignalDismissesAWaitingMessageAndThenClosesTheWindow)
{
    int received = 0;
    const vantix::host::desktop::SignalClose watch(*m_window, [&received] { return received; });
    QTest::qWait(300);
    EXPECT_TRUE(m_window->isVisible()) << "no signal yet";
    bool answered = false, leftWaiting = false;
    // Should the message stay, the test answers it itself rather than wait for ever.
    QTimer::singleShot(5000,
                       [&leftWaiting]
                       {
                           if (QWidget* modal = QApplication::activeModalWidget())
                               leftWaiting = modal->close();
                       });
    QTimer::singleShot(0,
                       [&]
                       {
                           received = SIGTERM;
                           QMessageBox::information(m_window.get(), "Working", "Waiting for an answer");
                           answered = true;
                       });
    for (int wait = 0; wait < 100 && (!answered || m_window->isVisible()); ++wait)
        QTest::qWait(50);
    EXPECT_TRUE(answered && !leftWaiting);
    EXPECT_FALSE(m_window->isVisible());
}

} // namespace
