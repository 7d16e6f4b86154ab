#pragma once

#include "core/Settings.h"

namespace vantix::vtxutiltools
{

// Records a completed animation as the add-on's "Animate" macro command with its destination. Called only
// while the host records a macro, and only for an animation that ran to its end.
void RecordAnimateCommand(Destination_e destination);

} // namespace vantix::vtxutiltools
