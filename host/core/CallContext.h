// Who is calling into the host's SDK side, so that the protocol errors the host reports about a call name
// the caller. An SDK function enters the host with Enter (core/Application.h).
#pragma once

#include "core/SdkCalls.h"

#include <string>

namespace vantix::host::detail
{

class Application;

class CallContext
{
public:
    // An SDK function, entered here.
    explicit CallContext(Call call);
    // Any other caller of the host's SDK side, such as a toolbox class, named as messages should name it;
    // the name is a literal, kept as it is.
    explicit CallContext(const char* who) : m_who(who) {}

    Application& app() const;
    // Reports "<caller> <why>" as a protocol error.
    void refuse(const std::string& why) const;

private:
    const char* m_who; // not owned: a literal, or the SDK function's name
};

} // namespace vantix::host::detail
