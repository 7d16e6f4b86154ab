#pragma once

namespace vantix::vtxutiltools
{

// Whether an animation that ran to its end is recorded as an "Animate" macro command.
enum MacroOption_e
{
    // Recorded when the host is recording a macro.
    RecordMacro = 0,
    // Never recorded.
    DoNotRecordMacro = 1
};

} // namespace vantix::vtxutiltools
