// The module's entry point, which the host calls once right after loading the module, and the two callbacks
// that keep the add-on's menu option usable exactly when the add-on can work.
#include "gui/DialogMain.h"
#include "macro/MacroManager.h"
#include "platform/AddOnID.h"

#include <VtxUtil.h>

#include <bitset>

namespace
{

const char* const AddOnName = "Key Frame Animation";
const char* const AddOnVersion = "1.0.0";
const char* const AddOnAuthor = "The Key Frame Animation developers";
const int SdkVersion = 110;
const char* const HostMenu = "Animate";
const char* const MenuOption = "&Key Frame Animation...";

// The state changes after which the option's sensitivity may be different: zones deleted or added, a frame
// deleted, created or made active, a style change, a data set reset or loaded, a new layout, and a plot
// type changed.
const std::bitset<52> RelevantStateChanges = []
{
    std::bitset<52> codes;
    for (const int code :
         {StateChange_ZonesDeleted, StateChange_ZonesAdded, StateChange_FrameDeleted, StateChange_NewTopFrame,
          StateChange_Style, StateChange_DataSetReset, StateChange_NewLayout, StateChange_PlotTypeChanged,
          StateChange_FrameCreated, StateChange_DataSetLoaded})
        codes.set(static_cast<std::size_t>(code));
    return codes;
}();

bool pendingUpdateFuncOnIdle = false;

// A 3D Cartesian frame with data; asked in this order, and no further than the first that fails.
Boolean MenuOptionIsSensitive()
{
    return VtxUtilFrameGetCount() > 0 && VtxUtilDataSetIsAvailable() && DialogMain::okToLaunch() ? TRUE
                                                                                                 : FALSE;
}

} // namespace

namespace vantix::vtxutiltools
{

void onIdleCallback(ArbParam_t /*clientData*/)
{
    VtxUtilMenuSetSensitivity(HostMenu, MenuOption, MenuOptionIsSensitive());
    pendingUpdateFuncOnIdle = false;
}

// A burst of relevant changes before the host is idle costs one update.
void StateChangeCallback(StateChange_e code)
{
    if (pendingUpdateFuncOnIdle)
        return;
    if (code < 0 || static_cast<std::size_t>(code) >= RelevantStateChanges.size() ||
        !RelevantStateChanges.test(static_cast<std::size_t>(code)))
        return;
    pendingUpdateFuncOnIdle = true;
    VtxUtilOnIdleQueueAddCallback(onIdleCallback, 0);
}

} // namespace vantix::vtxutiltools

extern "C" __attribute__((visibility("default"))) void InitVtxAddOn113()
{
    using namespace vantix::vtxutiltools;
    // No add-on handle exists yet, so the global lock brackets the registration.
    VtxUtilLockOn();
    AddOnID = VtxUtilAddOnRegister(SdkVersion, AddOnName, AddOnVersion, AddOnAuthor);
    VtxUtilMenuAddOption(HostMenu, MenuOption, TRUE, DialogMain::launch);
    MacroManager::registerCallback();

    ArgList_pa arguments = VtxUtilArgListAlloc();
    VtxUtilArgListAppendFunction(arguments, "CallbackFunction",
                                 reinterpret_cast<const void*>(StateChangeCallback));
    VtxUtilArgListAppendInt(arguments, "StateChangeMode", StateChangeMode_Immediate);
    VtxUtilArgListAppendInt(arguments, "StateChangeCallbackAPI", StateChangeCallbackAPI_ChangeOnly);
    VtxUtilStateChangeAddCallbackX(arguments);
    VtxUtilArgListDealloc(&arguments);

    VtxUtilMenuSetSensitivity(HostMenu, MenuOption, MenuOptionIsSensitive());
    VtxUtilLockOff();
}
