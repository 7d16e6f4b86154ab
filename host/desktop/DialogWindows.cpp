#include "desktop/DialogWindows.h"

#include "desktop/DialogWindow.h"

#include <vantix/host/Gui.h>

#include <algorithm>

namespace vantix::host::desktop
{

DialogWindows::DialogWindows(QWidget* mainWindow) : m_mainWindow(mainWindow) {}

DialogWindows::~DialogWindows()
{
    // Dialogs held by other dialogs go first; deleting one deletes the windows it holds with it.
    for (auto window = m_windows.rbegin(); window != m_windows.rend(); ++window)
        delete window->second.data();
}

void DialogWindows::sync()
{
    for (const int id : dialogs())
    {
        const GuiElement dialog = guiElement(id);
        DialogWindow* window = find(id);
        if (!window && dialog.up)
            window = windowFor(id);
        if (window)
            window->sync(dialog);
    }
}

QDialog* DialogWindows::window(int dialog) const
{
    return find(dialog);
}

QWidget* DialogWindows::widget(int control) const
{
    for (const auto& [id, window] : m_windows)
        if (QWidget* found = window ? window->widget(control) : nullptr)
            return found;
    return nullptr;
}

QAction* DialogWindows::action(int menuEntry) const
{
    for (const auto& [id, window] : m_windows)
        if (QAction* found = window ? window->action(menuEntry) : nullptr)
            return found;
    return nullptr;
}

DialogWindow* DialogWindows::find(int dialog) const
{
    const auto found = std::find_if(m_windows.begin(), m_windows.end(),
                                    [dialog](const auto& window) { return window.first == dialog; });
    return found == m_windows.end() ? nullptr : found->second.data();
}

// The parent dialog's window is made first, hidden until its dialog comes up.
DialogWindow* DialogWindows::windowFor(int dialog)
{
    if (DialogWindow* window = find(dialog))
        return window;
    const int parent = guiElement(dialog).parent;
    QWidget* parentWindow = parent == GuiId_MainWindow ? m_mainWindow : windowFor(parent);
    m_windows.erase(std::remove_if(m_windows.begin(), m_windows.end(),
                                   [dialog](const auto& window) { return window.first == dialog; }),
                    m_windows.end());
    m_windows.emplace_back(dialog, new DialogWindow(dialog, parentWindow));
    return m_windows.back().second.data();
}

} // namespace vantix::host::desktop
