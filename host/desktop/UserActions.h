// What the person does at the desktop reaches the host one action at a time. An action (a click on an
// add-on's button, a menu command) may run for minutes inside the host: an animation on screen draws
// frame after frame before it returns. Meanwhile the windows keep painting and the Cancel button of the
// status bar keeps working, but no other input reaches a window, so that nothing calls into the host or an
// add-on while it is busy. When the outermost action ends, the host is idle: its on-idle queue runs and
// every window is brought up to date.
#pragma once

#include <functional>
#include <string>

class QObject;
class QWidget;

namespace vantix::host::desktop
{

// Runs the action through the host's entry points. What the host refuses (an exception) is told to the
// refusal reporter rather than passed on. Actions nest: one that starts while another runs (from a
// dialog the first one opened) runs at once.
void RunUserAction(const std::function<void()>& action);
bool UserActionRunning();

// During an action: brings the windows up to date, paints what is due and lets the Cancel button be
// pressed; every other input is dropped. Called on every redraw and progress step.
void KeepWindowsAnswering();

// The windows may take input during an action: the Cancel button, and the message boxes and file
// dialogs the host asks the person through (marked with this).
void SetCancelButton(QWidget* button);
void AnswersDuringActions(QWidget* window);

// Brings every window up to date with the host; called after each action (the on-idle queue has run)
// and while an action keeps the windows answering.
void SetWindowRefresher(std::function<void()> refresh);
// Shows why the host refused an action; without one it goes to standard error.
void SetRefusalReporter(std::function<void(const std::string&)> report);

// The host is idle: runs the on-idle queue until it is empty and refreshes the windows, unless an action
// runs. The desktop calls it whenever its event loop has nothing left to do.
void HostIsIdle();

} // namespace vantix::host::desktop
