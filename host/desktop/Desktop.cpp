#include "desktop/Desktop.h"

#include "desktop/MainWindow.h"
#include "desktop/SignalClose.h"
#include "desktop/UserActions.h"

#include <vantix/host/Events.h>
#include <vantix/host/Gui.h>

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QScreen>
#include <QTimer>

#include <cstdlib>

namespace vantix::host::desktop
{

std::string DesktopUnavailableReason()
{
    const auto set = [](const char* name)
    {
        const char* value = std::getenv(name);
        return value && *value;
    };
    if (set("QT_QPA_PLATFORM") || set("DISPLAY") || set("WAYLAND_DISPLAY"))
        return {};
    return "there is no display to open the desktop on (DISPLAY is not set); give a macro file to replay it "
           "in batch";
}

int RunDesktop(const std::string& macroPath, int (*signalReceived)())
{
    static int argc = 1;
    static char name[] = "vantix";
    static char* argv[] = {name, nullptr};
    QApplication application(argc, argv);
    QApplication::setApplicationName("Vantix");
    // The help opens in the desktop's own window, never in a browser started behind the person's back.
    setHelpBrowserAllowed(false);

    MainWindow window;
    window.resize(1280, 860);
    window.show();
    const SignalClose closeOnSignal(window,
                                    [signalReceived] { return signalReceived ? signalReceived() : 0; });
    // The host is idle whenever the event loop has nothing left to do: the add-ons' queued calls run then.
    QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock,
                     []
                     {
                         if (pendingOnIdleCalls() > 0)
                             QTimer::singleShot(0, [] { HostIsIdle(); });
                     });
    if (!macroPath.empty())
        QTimer::singleShot(0, &window, [&window, macroPath] { window.playMacro(macroPath); });
    return QApplication::exec();
}

} // namespace vantix::host::desktop
