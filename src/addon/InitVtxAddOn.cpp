// The module's entry point. The host calls it once, right after loading the module.
#include "platform/AddOnID.h"

#include <VtxUtil.h>

namespace
{

const char* const AddOnName = "Key Frame Animation";
const char* const AddOnVersion = "1.0.0";
const char* const AddOnAuthor = "The Key Frame Animation developers";
const int SdkVersion = 110;

} // namespace

extern "C" __attribute__((visibility("default"))) void InitVtxAddOn113()
{
    using vantix::vtxutiltools::AddOnID;
    // No add-on handle exists yet, so the global lock brackets the registration.
    VtxUtilLockOn();
    AddOnID = VtxUtilAddOnRegister(SdkVersion, AddOnName, AddOnVersion, AddOnAuthor);
    VtxUtilLockOff();
}
