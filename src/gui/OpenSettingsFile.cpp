#include "gui/OpenSettingsFile.h"

#include "document/KeyFrameFile.h"
#include "gui/DialogMain.h"
#include "macro/MacroManager.h"

namespace vantix::vtxutiltools
{

void OpenSettingsFile(const std::string& fileName, ListModelKeyFrame& model, Settings_s& settings)
{
    KeyFrameFile().readFile(fileName, settings, model);
    DialogMain::instance().onSettingsFileRead(fileName);
    MacroManager::instance().recordCommand(Command_e::OpenSettingsFile, {{FileName, fileName}});
}

} // namespace vantix::vtxutiltools
