#include "desktop/SignalClose.h"

#include "desktop/UserActions.h"

#include <QApplication>
#include <QWidget>

#include <utility>

namespace vantix::host::desktop
{

namespace
{

constexpr int CheckMilliseconds = 100;

} // namespace

SignalClose::SignalClose(QWidget& window, std::function<int()> received)
    : m_window(window), m_received(std::move(received))
{
    connect(&m_timer, &QTimer::timeout, this, &SignalClose::check);
    m_timer.start(CheckMilliseconds);
}

void SignalClose::check()
{
    if (m_received() == 0)
        return;
    // A message or dialog waiting for the person would keep the action under way waiting for ever.
    if (QWidget* modal = QApplication::activeModalWidget())
    {
        modal->close();
        return;
    }
    if (UserActionRunning())
        return;
    m_timer.stop();
    m_window.close();
}

} // namespace vantix::host::desktop
