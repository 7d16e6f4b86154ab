// State that a part of the host above the core keeps in the Application (the GUI model, the open export,
// the add-on modules, ...), so that the core holds the whole host state without knowing those parts.
#pragma once

namespace vantix::host::detail
{

class HostPart
{
public:
    virtual ~HostPart() = default;
    // Puts the part back as a clean host has it. A part made after a reset is made and then reset, so that
    // every part of a reset host looks reset, whenever it was first needed.
    virtual void reset() = 0;
};

} // namespace vantix::host::detail
