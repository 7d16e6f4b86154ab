#include "desktop/MainWindow.h"

#include "desktop/HostCommands.h"
#include "desktop/UserActions.h"

#include <vantix/host/Events.h>
#include <vantix/host/Export.h>
#include <vantix/host/Host.h>
#include <vantix/host/Macro.h>
#include <vantix/host/Render.h>
#include <vantix/toolbox/ReplacingFile.h>

#include <QCloseEvent>
#include <QMenuBar>
#include <QMessageBox>
#include <QStatusBar>

#include <cmath>
#include <stdexcept>

namespace vantix::host::desktop
{

namespace
{

// The host's menus, in the order of its menu bar.
const char* const MenuNames[] = {"File",  "Edit",    "View",      "Plot",  "Animate", "Data",
                                 "Frame", "Options", "Scripting", "Tools", "Help"};

const char* const MeshFilter = "*.stl *.obj *.ply *.off *.3ds *.dae *.gltf *.glb";

} // namespace

MainWindow::MainWindow()
    : m_page(new PageView(this)), m_status(std::make_unique<StatusProgress>(statusBar())),
      m_help(new HelpWindow(this)), m_prompter(this), m_dialogs(this)
{
    setWindowTitle("Vantix");
    setCentralWidget(m_page);
    for (const char* name : MenuNames)
    {
        QMenu* menu = menuBar()->addMenu(QString("&") + name);
        m_menus[name] = menu;
    }
    addHostEntries();
    m_chooseFile = [this](bool write, const std::string& what, const std::string& filter)
    {
        return m_prompter.askFileName(write ? SelectFileOption_WriteFile : SelectFileOption_ReadSingleFile,
                                      what, "", filter);
    };
    SetWindowRefresher([this] { refresh(); });
    SetRefusalReporter([this](const std::string& why) { tell(why); });
    setRedrawObserver(
        [this]
        {
            m_redrawsSeen = redrawCount();
            m_page->showRedraw();
            KeepWindowsAnswering();
        });
    refresh();
}

MainWindow::~MainWindow()
{
    setRedrawObserver(nullptr);
    SetWindowRefresher(nullptr);
    SetRefusalReporter(nullptr);
    m_status.reset();
}

QMenu* MainWindow::menu(const std::string& name) const
{
    const auto found = m_menus.find(name);
    return found == m_menus.end() ? nullptr : found->second;
}

QAction* MainWindow::menuEntry(const std::string& menuName, const std::string& text) const
{
    if (QMenu* found = menu(menuName))
        for (QAction* action : found->actions())
            if (readableLabel(action->text().toStdString()) == readableLabel(text))
                return action;
    return nullptr;
}

void MainWindow::addHostEntries()
{
    QMenu* file = menu("File");
    file->addAction("Load &Demo Data Set", [] { RunUserAction(LoadDemoData); });
    file->addAction(
        "&Load Mesh File...",
        [this] { withFile(false, "Mesh", MeshFilter, [](const std::string& path) { LoadMeshFile(path); }); });
    file->addSeparator();
    file->addAction(
        "&Export Picture...",
        [this] { withFile(true, "PNG", "*.png", [this](const std::string& path) { exportPicture(path); }); });
    file->addSeparator();
    file->addAction("E&xit", QKeySequence::Quit, this, &QWidget::close);

    QMenu* scripting = menu("Scripting");
    scripting->addAction(
        "&Play Macro...",
        [this] { withFile(false, "Macro", "*.mcr", [this](const std::string& path) { playMacro(path); }); });
    scripting->addAction(
        "&Record Macro...", [this]
        { withFile(true, "Macro", "*.mcr", [this](const std::string& path) { startRecording(path); }); });
    m_stopRecording =
        scripting->addAction("&Stop Recording", [this] { RunUserAction([this] { stopRecording(); }); });

    menu("Help")->addAction("&About Vantix",
                            [this]
                            {
                                QMessageBox::about(this, "About Vantix",
                                                   QString("Vantix, with the add-ons it loaded.\nDrawn by ") +
                                                       QString::fromStdString(rendererDescription()));
                            });
}

void MainWindow::withFile(bool write, const std::string& what, const std::string& filter,
                          const std::function<void(const std::string&)>& command)
{
    const std::optional<std::string> path = m_chooseFile(write, what, filter);
    if (path)
        RunUserAction([&] { command(*path); });
}

void MainWindow::playMacro(const std::string& path)
{
    RunUserAction(
        [&]
        {
            const vantix::toolbox::KeptFile macro(path, "it is the macro being replayed");
            const MacroResult result = runMacroFile(path);
            const std::string left = abandonExportLeftOpenBy(path);
            if (!result.ok())
                throw std::runtime_error(result.message);
            if (!left.empty())
                throw std::runtime_error(left);
            statusBar()->showMessage(QString::fromStdString("Replayed " + path), 5000);
        });
}

void MainWindow::startRecording(const std::string& path)
{
    m_recording.start(path);
    statusBar()->showMessage(QString::fromStdString("Recording a macro to " + path));
}

void MainWindow::stopRecording()
{
    const std::string path = m_recording.path();
    m_recording.stop();
    statusBar()->showMessage(QString::fromStdString("Macro written to " + path), 5000);
}

void MainWindow::exportPicture(const std::string& path)
{
    const std::array<double, 2> size = regionPixelSize(ExportRegion_CurrentFrame);
    if (size[0] < 1.0 || size[1] < 1.0)
        throw std::runtime_error("cannot export a picture: the page has no frame");
    writePng(renderRegion(ExportRegion_CurrentFrame, static_cast<int>(std::lround(size[0])),
                          static_cast<int>(std::lround(size[1]))),
             path);
    statusBar()->showMessage(QString::fromStdString("Picture written to " + path), 5000);
}

void MainWindow::tell(const std::string& message)
{
    statusBar()->showMessage(QString::fromStdString(message), 10000);
    m_prompter.showMessage(message, MessageBoxType_Error);
}

void MainWindow::syncAddOnOptions()
{
    for (const HostMenuOption& option : hostMenuOptions())
    {
        QAction*& action = m_addOnOptions[{option.menu, option.label}];
        if (!action)
        {
            QMenu* parent = menu(option.menu);
            if (!parent)
                continue;
            action = parent->addAction(QString::fromStdString(option.label),
                                       [menu = option.menu, label = option.label]
                                       { RunUserAction([&] { chooseHostMenuOption(menu, label); }); });
        }
        action->setEnabled(option.sensitive);
    }
    for (const auto& [name, menu] : m_menus)
        menu->setEnabled(!menu->actions().isEmpty());
}

void MainWindow::refresh()
{
    syncAddOnOptions();
    m_stopRecording->setEnabled(m_recording.recording());
    m_dialogs.sync();
    // During an action the page shows what the add-on redraws and nothing else: it sets views it does not
    // mean anybody to see (an animation computes all its views before it draws the first). What changed
    // without a redraw shows when the action is over, unless drawing is suspended then.
    if (UserActionRunning() || drawSuspensionDepth() > 0)
        return;
    if (!raisedStateChanges().empty() || redrawCount() != m_redrawsSeen)
    {
        // The log of changes would grow for as long as the desktop runs: what is read is forgotten.
        clearRaisedStateChanges();
        m_redrawsSeen = redrawCount();
        m_page->pageChanged();
    }
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    RunUserAction(
        [this]
        {
            if (m_recording.recording())
                stopRecording();
        });
    RunUserAction([] { raiseStateChange(StateChange_QuitProgram); });
    for (const int dialog : vantix::host::dialogs())
        if (QDialog* window = m_dialogs.window(dialog))
            window->hide();
    m_help->hide();
    event->accept();
}

} // namespace vantix::host::desktop
