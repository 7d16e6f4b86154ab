#pragma once

#include <VtxGUI.h>

#include <initializer_list>

namespace vantix::vtxutiltools
{

// Greys the controls out, or makes them usable, together.
inline void SetSensitivity(std::initializer_list<int> controls, bool sensitive)
{
    for (const int control : controls)
        VtxGUISetSensitivity(control, sensitive ? TRUE : FALSE);
}

} // namespace vantix::vtxutiltools
