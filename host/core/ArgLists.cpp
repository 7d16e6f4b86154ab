#include "core/ArgLists.h"

#include "core/SameName.h"

const ArgList_s::Argument* ArgList_s::find(std::string_view name) const
{
    for (const Argument& argument : arguments)
        if (vantix::host::detail::SameName(argument.name, name))
            return &argument;
    return nullptr;
}

namespace vantix::host::detail
{

ArgList_s* ArgLists::allocate()
{
    auto list = std::make_unique<ArgList_s>();
    ArgList_s* const handle = list.get();
    m_lists.keep(handle, std::move(list));
    return handle;
}

ArgList_s* ArgLists::require(const CallContext& call, ArgList_pa handle) const
{
    ArgList_s* list = m_lists.find(handle);
    if (!list)
        call.refuse("was given an argument list the host never made (or released already)");
    return list;
}

bool ArgLists::append(const CallContext& call, ArgList_pa handle, const char* name,
                      std::variant<LgIndex_t, const void*> value) const
{
    ArgList_s* list = require(call, handle);
    if (!list)
        return false;
    if (!name || !*name)
    {
        call.refuse("was given an argument without a name");
        return false;
    }
    if (list->find(name))
    {
        call.refuse("was given the argument \"" + std::string(name) + "\" a second time");
        return false;
    }
    list->arguments.push_back({name, value});
    return true;
}

void ArgLists::release(const CallContext& call, ArgList_pa* handle)
{
    if (!handle || !*handle)
        return;
    if (m_lists.release(*handle) == Release::Unknown)
    {
        call.refuse("was given an argument list the host never made (or released already)");
        return;
    }
    *handle = nullptr;
}

} // namespace vantix::host::detail
