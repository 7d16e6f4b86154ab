// The way into the host for its SDK side, and who is calling, so that the protocol errors the host reports
// about a call name the caller.
#pragma once

#include "core/SdkCalls.h"

#include <string>
#include <utility>

namespace vantix::host::detail
{

class Application;

// The one Application, with the SDK function's call counted and traced: the first line of every SDK
// function.
Application& Enter(Call call);

class CallContext
{
public:
    // An SDK function, entered here.
    explicit CallContext(Call call);
    // Any other caller of the host's SDK side, such as a toolbox class, named as messages should name it.
    explicit CallContext(std::string who) : m_who(std::move(who)) {}

    Application& app() const;
    // Reports "<caller> <why>" as a protocol error.
    void refuse(const std::string& why) const;

private:
    std::string m_who;
};

} // namespace vantix::host::detail
