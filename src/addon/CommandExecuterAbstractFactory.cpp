#include "addon/CommandExecuterAbstractFactory.h"

#include "animation/Animate.h"
#include "document/ListModelKeyFrame.h"
#include "gui/DialogMain.h"
#include "gui/OpenSettingsFile.h"

namespace vantix::vtxutiltools
{

void CommandExecuterAbstractFactory::CommandExecuterOpenSettings::executeCommand(
    const MacroParameterList& parameters)
{
    std::string fileName;
    getRequiredParameter(FileName, parameters, fileName);
    DialogMain& dialog = DialogMain::instance();
    // Read into copies, so that a file that cannot be read leaves the dialog as it was.
    ListModelKeyFrame keyFrames;
    Settings_s settings = dialog.settings();
    OpenSettingsFile(fileName, keyFrames, settings);
    dialog.applySettings(settings);
    dialog.applyDataModel(keyFrames);
}

void CommandExecuterAbstractFactory::CommandExecuterAnimate::executeCommand(
    const MacroParameterList& parameters)
{
    DialogMain& dialog = DialogMain::instance();
    Settings_s settings = dialog.settings();
    getRequiredParameter(AnimationDestination, parameters, settings.destination);
    dialog.applySettings(settings);
    const std::vector<KeyFrame_s>& keyFrames = dialog.keyFrameModel().dataList();
    Animate(keyFrames, 0, keyFrames.size(), settings, RecordMacro);
}

std::unique_ptr<CommandExecuterAbstract> CommandExecuterAbstractFactory::getMacroExecuter(Command_e command)
{
    switch (command)
    {
    case Command_e::Animate:
        return std::make_unique<CommandExecuterAnimate>();
    case Command_e::OpenSettingsFile:
        return std::make_unique<CommandExecuterOpenSettings>();
    }
    return nullptr;
}

} // namespace vantix::vtxutiltools
