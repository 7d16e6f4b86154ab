// The desktop as a person feels it, on Qt's offscreen platform with the page at 1280 x 720: how many
// pictures a second the page shows while the mouse turns the demo data set's view, and how long it takes
// from the key press of "Animate All" in the key frame dialog to the animation's first frame on screen.
#include "desktop/MainWindow.h"
#include "desktop/UserActions.h"
#include "gui/DialogLayouts.h"

#include <vantix/host/Events.h>
#include <vantix/host/Gui.h>
#include <vantix/host/Host.h>
#include <vantix/host/Macro.h>
#include <vantix/host/Scene.h>

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

#include <benchmark/benchmark.h>

#include <stdexcept>

extern "C" void InitVtxAddOn113();

namespace
{

using vantix::host::desktop::MainWindow;

// A window whose page is 1280 x 720, with the demo data set loaded.
std::unique_ptr<MainWindow> DemoWindow()
{
    vantix::host::reset();
    vantix::host::addFrame();
    static const bool loaded = (InitVtxAddOn113(), true);
    (void)loaded;
    auto window = std::make_unique<MainWindow>();
    window->resize(1280, 900);
    window->show();
    if (!QTest::qWaitForWindowExposed(window.get()))
        throw std::runtime_error("the main window was not shown");
    const QSize page = window->page().size();
    window->resize(window->width() + 1280 - page.width(), window->height() + 720 - page.height());
    vantix::host::desktop::RunUserAction([] { vantix::host::loadDemoDataSet(); });
    QApplication::processEvents();
    return window;
}

void MouseMove(QWidget& page, QPoint to)
{
    QMouseEvent move(QEvent::MouseMove, to, page.mapToGlobal(to), Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QApplication::sendEvent(&page, &move);
}

// Each step a drag of 3 pixels, and the events it brings, the page's paint among them.
void TurnTheViewWithTheMouse(benchmark::State& state)
{
    const std::unique_ptr<MainWindow> window = DemoWindow();
    QWidget& page = window->page();
    const QPoint centre = page.rect().center();
    QTest::mousePress(&page, Qt::LeftButton, {}, centre);
    const long before = window->page().picturesDrawn();
    int step = 0;
    for (auto _ : state)
    {
        MouseMove(page, centre + QPoint(3 * (++step % 100), 0));
        QApplication::processEvents();
    }
    QTest::mouseRelease(&page, Qt::LeftButton, {}, centre);
    const double pictures = static_cast<double>(window->page().picturesDrawn() - before);
    state.counters["pictures_per_second"] = benchmark::Counter(pictures, benchmark::Counter::kIsRate);
    state.counters["pictures_per_move"] = pictures / static_cast<double>(state.iterations());
    const QSize drawn = window->page().picture().size();
    state.SetLabel(std::to_string(drawn.width()) + "x" + std::to_string(drawn.height()) +
                   " page picture in a 1280x720 view");
}

// Alt+N is "A&nimate\nAll": from the key press to the first frame painted; the animation is cancelled
// then.
void KeyPressToFirstAnimatedFrame(benchmark::State& state)
{
    const std::unique_ptr<MainWindow> window = DemoWindow();
    vantix::host::desktop::RunUserAction(
        [] { vantix::host::chooseHostMenuOption("Animate", "Key Frame Animation..."); });
    for (int view = 0; view < 3; ++view)
        vantix::host::desktop::RunUserAction(
            []
            {
                vantix::host::runMacroText(
                    std::string(vantix::host::MacroHeader) + "\n$!ROTATE3DVIEW THETA = 40\n", "bench");
                vantix::host::pressButton(AppendKeyFrame_BTN_D1);
            });
    QDialog* dialog = window->dialogs().window(Dialog1Manager);
    QElapsedTimer pressed;
    double firstFrame = -1.0;
    int redraws = 0;
    window->page().setPictureShownObserver(
        [&]
        {
            // The first picture of the animation itself: the add-on computes its views before it draws.
            if (firstFrame >= 0.0 || vantix::host::redrawCount() == redraws)
                return;
            firstFrame = static_cast<double>(pressed.nsecsElapsed()) * 1e-9;
            vantix::host::requestCancel();
        });
    // The add-on tells of the cancel in a message box: a person would close it.
    QTimer closer;
    QObject::connect(&closer, &QTimer::timeout,
                     []
                     {
                         if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
                             box->accept();
                     });
    closer.start(10);
    for (auto _ : state)
    {
        // The mnemonic is looked up in the active window: the dialog, as after a click into it (the
        // message box of the last cancel had taken it).
        QApplication::setActiveWindow(dialog);
        if (!QTest::qWaitForWindowActive(dialog))
            throw std::runtime_error("the key frame dialog did not become active");
        firstFrame = -1.0;
        redraws = vantix::host::redrawCount();
        pressed.start();
        QTest::keyClick(dialog, Qt::Key_N, Qt::AltModifier);
        if (firstFrame < 0.0) // a button that presses itself later
            (void)QTest::qWaitFor([&] { return firstFrame >= 0.0; }, 3000);
        if (firstFrame < 0.0)
        {
            state.SkipWithError("the key press showed no frame");
            break;
        }
        state.SetIterationTime(firstFrame);
    }
    window->page().setPictureShownObserver(nullptr);
    vantix::host::setPlotType(PlotType_Cartesian2D); // closes the dialog
    vantix::host::runOnIdleUntilEmpty();
}

} // namespace

BENCHMARK(TurnTheViewWithTheMouse)->Unit(benchmark::kMillisecond)->MinTime(3.0)->UseRealTime();
BENCHMARK(KeyPressToFirstAnimatedFrame)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(10);

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
