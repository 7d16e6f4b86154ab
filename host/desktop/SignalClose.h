// A signal to end the program (SIGTERM, Ctrl-C, SIGHUP) closes the desktop. The host has cancelled the
// work under way when the signal came; this watch dismisses a message that waits for an answer, lets the
// action under way stop at its next check, and then closes the main window as if the person had closed it
// (a macro being recorded is written). The program's exit status then tells the signal.
#pragma once

#include <QObject>
#include <QTimer>

#include <functional>

class QWidget;

namespace vantix::host::desktop
{

class SignalClose : public QObject
{
public:
    // received answers the signal received, or 0; it is asked a few times a second.
    SignalClose(QWidget& window, std::function<int()> received);

private:
    void check();

    QWidget& m_window;
    std::function<int()> m_received;
    QTimer m_timer;
};

} // namespace vantix::host::desktop
