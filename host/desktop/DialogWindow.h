// One dialog of the host's GUI model as a window: its menu bar on top, its controls at their places below,
// its own buttons at the bottom. Closing it and Esc are the person's actions on the dialog; the window goes
// down only when the model's dialog does.
#pragma once

#include <vantix/host/Gui.h>

#include <QDialog>

#include <map>
#include <memory>

class QAction;
class QDialogButtonBox;

namespace vantix::host::desktop
{

class ControlWidget;
class DialogMenuBar;

class DialogWindow : public QDialog
{
public:
    DialogWindow(int dialog, QWidget* parent);
    ~DialogWindow() override;

    // Shown and brought in line with the model while the dialog is up, hidden while it is down.
    void sync(const GuiElement& dialog);
    QWidget* widget(int control) const;
    QAction* action(int menuEntry) const;

protected:
    void closeEvent(QCloseEvent* event) override;
    void reject() override;
    // Return and Enter confirm a field's text and nothing else: a dialog of the host has no default button.
    void keyPressEvent(QKeyEvent* event) override;

private:
    void showButtons(const std::vector<std::string>& buttons);
    void syncControls(const std::vector<int>& controls);

    const int m_id;
    QWidget* m_area; // the controls' area; this window owns it and the box
    QDialogButtonBox* m_buttons;
    std::unique_ptr<DialogMenuBar> m_menuBar; // made with the first menu bar the dialog has
    std::map<int, std::unique_ptr<ControlWidget>> m_controls;
    GuiElement m_shown;
    bool m_first = true;
};

} // namespace vantix::host::desktop
