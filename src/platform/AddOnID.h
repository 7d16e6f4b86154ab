#pragma once

#include <VtxUtil.h>

namespace vantix::vtxutiltools
{

// The add-on's handle from the host's registration; every host lock of the add-on is taken with it.
extern AddOn_pa AddOnID;

} // namespace vantix::vtxutiltools
