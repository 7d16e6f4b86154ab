#include "core/CallContext.h"

#include "core/Application.h"
#include "events/ProtocolErrors.h"

namespace vantix::host::detail
{

CallContext::CallContext(Call call) : m_who(CallName(call))
{
    Enter(call);
}

Application& CallContext::app() const
{
    return Application::instance();
}

void CallContext::refuse(const std::string& why) const
{
    ReportProtocolError(std::string(m_who) + " " + why);
}

} // namespace vantix::host::detail
