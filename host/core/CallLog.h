// What add-ons called: every SDK call counted and, while tracing is on, every SDK call and style write in
// the order they came, so that tests can check what an add-on did and in which order.
#pragma once

#include "core/SdkCalls.h"

#include <array>
#include <string>
#include <vector>

namespace vantix::host::detail
{

class CallLog
{
public:
    void note(Call call)
    {
        ++m_counts[static_cast<std::size_t>(call)];
        if (m_tracing)
            m_trace.emplace_back(CallName(call));
    }
    // Traced as "StyleValue.set ThreeDView/PSIAngle".
    void noteStyleWrite(const std::string& path)
    {
        if (m_tracing)
            m_trace.push_back("StyleValue.set " + path);
    }

    void setTracing(bool on) { m_tracing = on; }
    const std::vector<std::string>& trace() const { return m_trace; }
    long count(Call call) const { return m_counts[static_cast<std::size_t>(call)]; }

private:
    bool m_tracing = false;
    std::vector<std::string> m_trace;
    std::array<long, CallCount> m_counts{};
};

} // namespace vantix::host::detail
