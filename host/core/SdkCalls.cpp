#include "core/SdkCalls.h"

namespace vantix::host::detail
{

namespace
{

const char* const CallNames[] = {
#define VANTIX_UTIL_CALL_NAME(name) "VtxUtil" #name,
#define VANTIX_GUI_CALL_NAME(name) "VtxGUI" #name,
    VANTIX_SDK_CALLS(VANTIX_UTIL_CALL_NAME, VANTIX_GUI_CALL_NAME)
#undef VANTIX_UTIL_CALL_NAME
#undef VANTIX_GUI_CALL_NAME
};

} // namespace

const char* CallName(Call call)
{
    return CallNames[static_cast<std::size_t>(call)];
}

} // namespace vantix::host::detail
