// Who is calling the host, so that the protocol errors the host reports about a call name the caller.
#pragma once

#include "core/Application.h"

#include <string>
#include <utility>

namespace vantix::host::detail
{

class CallContext
{
public:
    // An SDK function, which is noted (counted and traced) here.
    CallContext(Application& app, Call call) : m_app(app), m_who(CallName(call)) { app.note(call); }
    // Any other caller of the host's SDK side, such as a toolbox class, named as messages should name it.
    CallContext(Application& app, std::string who) : m_app(app), m_who(std::move(who)) {}

    Application& app() const { return m_app; }
    // Reports "<caller> <why>" as a protocol error.
    void refuse(const std::string& why) const { m_app.reportError(m_who + " " + why); }

private:
    Application& m_app;
    std::string m_who;
};

} // namespace vantix::host::detail
