// Argument lists: named values an add-on gathers for an SDK function that takes them
// (VtxUtilStateChangeAddCallbackX), made with VtxUtilArgListAlloc or vantix::toolbox::ArgList.
#pragma once

#include "core/CallContext.h"
#include "core/Handouts.h"

#include <VtxUtil.h>

#include <string>
#include <string_view>
#include <variant>
#include <vector>

// The record behind an argument list handle.
struct ArgList_s
{
    struct Argument
    {
        std::string name;
        std::variant<LgIndex_t, const void*> value; // an integer or a function
    };
    std::vector<Argument> arguments; // in the order appended

    // Null when the list has no argument of that name (names match in any case).
    const Argument* find(std::string_view name) const;
};

namespace vantix::host::detail
{

class ArgLists
{
public:
    ArgList_s* allocate();
    // The list behind a handle; null, after reporting, for one the host never gave out or released.
    ArgList_s* require(const CallContext& call, ArgList_pa handle) const;
    // Refused (reported, false) for an unknown list, a null or empty name, or a name the list has already.
    bool append(const CallContext& call, ArgList_pa handle, const char* name,
                std::variant<LgIndex_t, const void*> value) const;
    // Releases and nulls the handle; null is fine; an unknown handle is reported and left alone.
    void release(const CallContext& call, ArgList_pa* handle);

    long outstanding() const { return m_lists.outstanding(); }
    void forgetCounts() { m_lists.forgetCounts(); }

private:
    Handouts<ArgList_s> m_lists;
};

} // namespace vantix::host::detail
