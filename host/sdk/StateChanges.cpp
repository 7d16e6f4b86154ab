// Argument lists, and the state-change callbacks registered with them.
#include "core/Application.h"
#include "core/CallContext.h"
#include "events/HostEvents.h"

#include <variant>

using vantix::host::detail::Call;
using vantix::host::detail::CallContext;

namespace
{

const char* const CallbackFunction = "CallbackFunction";
const char* const StateChangeMode = "StateChangeMode";
const char* const StateChangeCallbackAPI = "StateChangeCallbackAPI";

// The integer argument of that name, or fallback when the list has none; refused (reported, false) when it
// is not an integer.
bool IntArgument(const CallContext& call, const ArgList_s& list, const char* name, LgIndex_t fallback,
                 LgIndex_t& value)
{
    const ArgList_s::Argument* argument = list.find(name);
    value = fallback;
    if (!argument)
        return true;
    if (!std::holds_alternative<LgIndex_t>(argument->value))
    {
        call.refuse(std::string("was given a function as \"") + name + "\", which takes an integer");
        return false;
    }
    value = std::get<LgIndex_t>(argument->value);
    return true;
}

// The callback the list registers; null (after reporting why) when the list does not make a registration.
StateChangeCallback_pf RegisteredCallback(const CallContext& call, const ArgList_s& list)
{
    for (const ArgList_s::Argument& argument : list.arguments)
    {
        // Names are unique in a list, so an argument is known when it is the one found under a known name.
        const bool known = &argument == list.find(CallbackFunction) ||
                           &argument == list.find(StateChangeMode) ||
                           &argument == list.find(StateChangeCallbackAPI);
        if (!known)
        {
            call.refuse("was given the unknown argument \"" + argument.name + "\"");
            return nullptr;
        }
    }
    const ArgList_s::Argument* function = list.find(CallbackFunction);
    if (!function || !std::holds_alternative<const void*>(function->value) ||
        !std::get<const void*>(function->value))
    {
        call.refuse(std::string("was given no function as \"") + CallbackFunction + "\"");
        return nullptr;
    }
    LgIndex_t mode = 0, api = 0;
    if (!IntArgument(call, list, StateChangeMode, StateChangeMode_Immediate, mode) ||
        !IntArgument(call, list, StateChangeCallbackAPI, StateChangeCallbackAPI_ChangeOnly, api))
        return nullptr;
    if (mode != StateChangeMode_Immediate)
    {
        call.refuse("was given the state-change mode " + std::to_string(mode) + "; the host offers 2");
        return nullptr;
    }
    if (api != StateChangeCallbackAPI_ChangeOnly)
    {
        call.refuse("was given the state-change callback form " + std::to_string(api) +
                    "; the host offers 1");
        return nullptr;
    }
    // The list carries every function as an address; this one was registered as the form asked for.
    return reinterpret_cast<StateChangeCallback_pf>(
        const_cast<void*>(std::get<const void*>(function->value)));
}

} // namespace

extern "C"
{

    ArgList_pa VtxUtilArgListAlloc(void)
    {
        const CallContext call(Call::ArgListAlloc);
        return call.app().argLists().allocate();
    }

    Boolean VtxUtilArgListAppendInt(ArgList_pa argList, const char* name, LgIndex_t value)
    {
        const CallContext call(Call::ArgListAppendInt);
        return call.app().argLists().append(call, argList, name, value) ? TRUE : FALSE;
    }

    Boolean VtxUtilArgListAppendFunction(ArgList_pa argList, const char* name, const void* function)
    {
        const CallContext call(Call::ArgListAppendFunction);
        return call.app().argLists().append(call, argList, name, function) ? TRUE : FALSE;
    }

    void VtxUtilArgListDealloc(ArgList_pa* argList)
    {
        const CallContext call(Call::ArgListDealloc);
        call.app().argLists().release(call, argList);
    }

    Boolean VtxUtilStateChangeAddCallbackX(ArgList_pa argList)
    {
        const CallContext call(Call::StateChangeAddCallbackX);
        const ArgList_s* list = call.app().argLists().require(call, argList);
        if (!list)
            return FALSE;
        const StateChangeCallback_pf callback = RegisteredCallback(call, *list);
        return callback && vantix::host::detail::Events().stateChanges.addCallback(callback) ? TRUE : FALSE;
    }

} // extern "C"
