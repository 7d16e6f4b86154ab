// Carries out one parsed macro command on the host.
//
// The commands work on the host core, through the same operations that the SDK functions wrap
// (VtxUtilViewRotate3D, VtxUtilSolutionTimeSetCurrent, VtxUtilRedraw, VtxUtilExport..., StyleValue), not
// through the SDK itself: the core library is what the SDK libraries are built on, and cannot call back
// up into them.
#pragma once

#include "macro/MacroCommand.h"

namespace vantix::host::detail
{

// Throws MacroError with the reason when the command fails; the host is then as the command left it.
void RunMacroCommand(const MacroCommand& command);

} // namespace vantix::host::detail
