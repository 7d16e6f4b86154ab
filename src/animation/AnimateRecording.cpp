#include "animation/AnimateRecording.h"

namespace vantix::vtxutiltools
{

void RecordAnimateCommand(Destination_e /*destination*/)
{
    // The add-on's macro recorder plugs in here.
}

} // namespace vantix::vtxutiltools
