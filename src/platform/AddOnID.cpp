#include "platform/AddOnID.h"

namespace vantix::vtxutiltools
{

AddOn_pa AddOnID = nullptr;

} // namespace vantix::vtxutiltools
