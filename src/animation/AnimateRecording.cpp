#include "animation/AnimateRecording.h"

#include "addon/MacroManager.h"
#include "core/Enumerations.h"

namespace vantix::vtxutiltools
{

void RecordAnimateCommand(Destination_e destination)
{
    MacroManager::instance().recordCommand(
        Command_e::Animate, {{AnimationDestination, EnumMap<Destination_e>::toString(destination)}});
}

} // namespace vantix::vtxutiltools
