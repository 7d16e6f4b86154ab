#include "core/Application.h"

#include <vantix/toolbox/ArgList.h>

namespace vantix::toolbox
{

namespace
{

using host::detail::Application;
using host::detail::CallContext;

} // namespace

ArgList::ArgList() : m_list(Application::instance().argLists().allocate()) {}

ArgList::~ArgList()
{
    try
    {
        const CallContext call("vantix::toolbox::ArgList::~ArgList");
        call.app().argLists().release(call, &m_list);
    }
    catch (...)
    {
        // Out of memory for the message of a misuse: the list is the host's to free at the end anyway.
    }
}

bool ArgList::appendInt(const char* name, LgIndex_t value)
{
    const CallContext call("vantix::toolbox::ArgList::appendInt");
    return call.app().argLists().append(call, m_list, name, value);
}

bool ArgList::appendFunction(const char* name, const void* function)
{
    const CallContext call("vantix::toolbox::ArgList::appendFunction");
    return call.app().argLists().append(call, m_list, name, function);
}

} // namespace vantix::toolbox
