// The desktop's main window: the host's menus with its own entries and the options add-ons added, the page
// drawn by the host's renderer, and the status bar with the host's status line. It brings every window up
// to date with the host after each action of the person's and on every redraw of an animation.
#pragma once

#include "desktop/DialogWindows.h"
#include "desktop/HelpWindow.h"
#include "desktop/MacroRecordingFile.h"
#include "desktop/PageView.h"
#include "desktop/Prompter.h"
#include "desktop/StatusProgress.h"

#include <QMainWindow>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>

class QAction;
class QMenu;

namespace vantix::host::desktop
{

class MainWindow : public QMainWindow
{
public:
    MainWindow();
    ~MainWindow() override;

    // Menus, dialogs, the page and the status bar as the host has them now.
    void refresh();
    // Scripting > Play Macro: replays a macro file; a failure is told in a message.
    void playMacro(const std::string& path);

    QMenu* menu(const std::string& name) const;
    // The entry of a host menu with that text as the person reads it ("Load Demo Data Set").
    QAction* menuEntry(const std::string& menu, const std::string& text) const;
    PageView& page() const { return *m_page; }
    DialogWindows& dialogs() { return m_dialogs; }
    StatusProgress& status() { return *m_status; }
    HelpWindow& help() const { return *m_help; }
    const MacroRecordingFile& recording() const { return m_recording; }

    // The file dialogs of the desktop's own menus; tests answer them in place of a person.
    using FileChooser = std::function<std::optional<std::string>(bool write, const std::string& what,
                                                                 const std::string& filter)>;
    void setFileChooser(FileChooser chooser) { m_chooseFile = std::move(chooser); }

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void addHostEntries();
    void syncAddOnOptions();
    void tell(const std::string& message);
    // Runs a menu command as an action of the person's, with the file chosen for it when it needs one.
    void withFile(bool write, const std::string& what, const std::string& filter,
                  const std::function<void(const std::string&)>& command);
    void startRecording(const std::string& path);
    void stopRecording();
    void exportPicture(const std::string& path);

    PageView* m_page;
    std::unique_ptr<StatusProgress> m_status;
    HelpWindow* m_help;
    Prompter m_prompter;
    DialogWindows m_dialogs;
    MacroRecordingFile m_recording;
    std::map<std::string, QMenu*> m_menus;
    std::map<std::pair<std::string, std::string>, QAction*> m_addOnOptions;
    QAction* m_stopRecording = nullptr;
    FileChooser m_chooseFile;
    long m_redrawsSeen = -1;
};

} // namespace vantix::host::desktop
