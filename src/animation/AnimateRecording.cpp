#include "animation/AnimateRecording.h"

#include "core/Enumerations.h"
#include "macro/MacroManager.h"

namespace vantix::vtxutiltools
{

void RecordAnimateCommand(Destination_e destination)
{
    MacroManager::instance().recordCommand(
        Command_e::Animate, {{AnimationDestination, EnumMap<Destination_e>::toString(destination)}});
}

} // namespace vantix::vtxutiltools
