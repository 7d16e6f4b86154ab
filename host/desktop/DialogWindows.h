// Every dialog of the host's GUI model as a window of the desktop, kept in line with the model.
#pragma once

#include <QPointer>

#include <utility>
#include <vector>

class QAction;
class QDialog;
class QWidget;

namespace vantix::host::desktop
{

class DialogWindow;

class DialogWindows
{
public:
    // Dialogs whose parent is the host's main window are owned by `mainWindow` (none: they are windows of
    // their own); a dialog's window is owned by its parent dialog's.
    explicit DialogWindows(QWidget* mainWindow);
    ~DialogWindows();
    DialogWindows(const DialogWindows&) = delete;
    DialogWindows& operator=(const DialogWindows&) = delete;

    // Brings every dialog in line with the model: its window is made when it first comes up, shown while
    // up, hidden while down, and every control shows what the model holds now. Called after every action
    // and on every redraw of an animation, so it touches a widget only where the model changed.
    void sync();

    // Null while none is made.
    QDialog* window(int dialog) const;
    // A control's widget (a spin field's line edit); null when none is made.
    QWidget* widget(int control) const;
    // A menu item's or menu toggle's action; null when none is made.
    QAction* action(int menuEntry) const;

private:
    DialogWindow* find(int dialog) const;
    DialogWindow* windowFor(int dialog);

    QWidget* m_mainWindow; // borrowed
    // In the order made, parents before the dialogs they hold; Qt's parents own them, so a window may be
    // gone with its parent.
    std::vector<std::pair<int, QPointer<DialogWindow>>> m_windows;
};

} // namespace vantix::host::desktop
