#include "scene/ZoneSet.h"

#include "core/Application.h"

void Set_s::add(LgIndex_t member)
{
    if (member < 1)
        return;
    const auto index = static_cast<std::size_t>(member);
    if (members.size() <= index)
        members.resize(index + 1, false);
    members[index] = true;
}

LgIndex_t Set_s::nextMember(LgIndex_t after) const
{
    for (auto index = static_cast<std::size_t>(after < 0 ? 0 : after + 1); index < members.size(); ++index)
        if (members[index])
            return static_cast<LgIndex_t>(index);
    return 0;
}

namespace vantix::host::detail
{

Set_s* SetRegistry::make()
{
    auto set = std::make_unique<Set_s>();
    Set_s* handle = set.get();
    m_sets.emplace(handle, std::move(set));
    return handle;
}

bool SetRegistry::release(Set_s* set)
{
    return m_sets.erase(set) != 0;
}

SetRegistry& ZoneSetsOf(Application& app)
{
    return app.part<SetRegistry>();
}

} // namespace vantix::host::detail
