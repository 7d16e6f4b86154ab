#include "core/Application.h"
#include "gui/UserInterface.h"

#include <vantix/toolbox/ArgList.h>

namespace vantix::toolbox
{

namespace
{

using host::detail::Application;
using host::detail::CallContext;
using host::detail::UserInterfaceOf;

} // namespace

ArgList::ArgList() : m_list(UserInterfaceOf(Application::instance()).argLists.allocate()) {}

ArgList::~ArgList()
{
    try
    {
        const CallContext call(Application::instance(), "vantix::toolbox::ArgList::~ArgList");
        UserInterfaceOf(call.app()).argLists.release(call, &m_list);
    }
    catch (...)
    {
        // Out of memory for the message of a misuse: the list is the host's to free at the end anyway.
    }
}

bool ArgList::appendInt(const char* name, LgIndex_t value)
{
    const CallContext call(Application::instance(), "vantix::toolbox::ArgList::appendInt");
    return UserInterfaceOf(call.app()).argLists.append(call, m_list, name, value);
}

bool ArgList::appendFunction(const char* name, const void* function)
{
    const CallContext call(Application::instance(), "vantix::toolbox::ArgList::appendFunction");
    return UserInterfaceOf(call.app()).argLists.append(call, m_list, name, function);
}

} // namespace vantix::toolbox
