// Sets of zone numbers handed to add-ons (Set_pa), and the host's record of those not yet released.
#pragma once

#include "core/HostPart.h"

#include <VtxUtil.h>

#include <memory>
#include <unordered_map>
#include <vector>

// The record behind a set handle: members[n] is true when n is a member (index 0 is never one).
struct Set_s
{
    std::vector<bool> members;

    void add(LgIndex_t member);
    // The smallest member greater than after; 0 when there is none.
    LgIndex_t nextMember(LgIndex_t after) const;
};

namespace vantix::host::detail
{

class Application;

// Owns every set handed out, so that the host can count what an add-on did not release and can refuse to
// release a handle it never made (or released already).
class SetRegistry : public HostPart
{
public:
    Set_s* make();
    // False when the set is not one of the outstanding ones; it is then left alone.
    bool release(Set_s* set);
    bool owns(const Set_s* set) const { return m_sets.count(const_cast<Set_s*>(set)) != 0; }
    long outstanding() const { return static_cast<long>(m_sets.size()); }

    // The sets an add-on did not release die with the state they described.
    void reset() override { m_sets.clear(); }

private:
    std::unordered_map<Set_s*, std::unique_ptr<Set_s>> m_sets;
};

// The zone sets of the application.
SetRegistry& ZoneSetsOf(Application& app);

} // namespace vantix::host::detail
