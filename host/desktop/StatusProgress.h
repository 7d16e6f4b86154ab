// The host's status line in the main window's status bar: the text the add-on sets, and during long work a
// progress bar with the time left and a Cancel button that asks the host to stop. While the work runs,
// each progress step keeps the windows answering, so that the button can be pressed.
#pragma once

#include <vantix/host/Host.h>

#include <QElapsedTimer>

class QLabel;
class QProgressBar;
class QPushButton;
class QStatusBar;

namespace vantix::host::desktop
{

class StatusProgress
{
public:
    // Adds its widgets to the status bar and observes the host's status line until destroyed.
    explicit StatusProgress(QStatusBar* bar);
    ~StatusProgress();
    StatusProgress(const StatusProgress&) = delete;
    StatusProgress& operator=(const StatusProgress&) = delete;

    QPushButton* cancelButton() const { return m_cancel; }
    QProgressBar* bar() const { return m_bar; }
    QLabel* text() const { return m_text; }
    QLabel* timeLeft() const { return m_timeLeft; }

private:
    void show(const StatusEvent& event);
    void showProgress(int percent);

    QLabel* m_text;
    QProgressBar* m_bar;
    QLabel* m_timeLeft;
    QPushButton* m_cancel;
    QElapsedTimer m_started;
};

// "12 s left", "3 min 20 s left"; empty until there is something to go by.
QString TimeLeftText(qint64 elapsedMs, int percent);

} // namespace vantix::host::desktop
