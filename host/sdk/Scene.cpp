// The data set of the active frame: zones, their times and strands, and sets of zone numbers.
#include "core/Application.h"
#include "core/CallContext.h"
#include "events/ProtocolErrors.h"
#include "scene/DataSet.h"
#include "scene/ZoneSet.h"

#include <string>

using vantix::host::detail::Application;
using vantix::host::detail::Call;
using vantix::host::detail::DataSet;
using vantix::host::detail::Enter;
using vantix::host::detail::ReportProtocolError;
using vantix::host::detail::SetRegistry;
using vantix::host::detail::Zone;

namespace
{

const DataSet* ActiveDataSet(Application& app)
{
    const auto* frame = app.page().activeFrame();
    return frame ? frame->dataSet.get() : nullptr;
}

SetRegistry& Sets(Application& app)
{
    return vantix::host::detail::ZoneSetsOf(app);
}

// The zone asked about, or null after reporting the protocol error of asking for one that is not there.
const Zone* ZoneAskedFor(Application& app, EntIndex_t zone, const char* function)
{
    const DataSet* dataSet = ActiveDataSet(app);
    if (dataSet && dataSet->isZone(zone))
        return &dataSet->zone(zone);
    ReportProtocolError(std::string(function) + " was asked for zone " + std::to_string(zone) + ", but " +
                        (dataSet ? "the data set has zones 1 to " + std::to_string(dataSet->zoneCount())
                                 : std::string("the active frame has no data set")));
    return nullptr;
}

} // namespace

extern "C"
{

    Boolean VtxUtilDataSetIsAvailable(void)
    {
        Application& app = Enter(Call::DataSetIsAvailable);
        return ActiveDataSet(app) ? TRUE : FALSE;
    }

    Boolean VtxUtilZoneGetEnabled(Set_pa* enabledZones)
    {
        Application& app = Enter(Call::ZoneGetEnabled);
        if (!enabledZones)
        {
            ReportProtocolError("VtxUtilZoneGetEnabled was given no place for the set");
            return FALSE;
        }
        const DataSet* dataSet = ActiveDataSet(app);
        if (!dataSet)
            return FALSE; // the handle stays as it was: without a data set there is no set to make
        if (*enabledZones && Sets(app).owns(*enabledZones))
            ReportProtocolError(
                "VtxUtilZoneGetEnabled was given a handle that already holds a set; that set leaks");
        Set_s* set = Sets(app).make();
        for (int zone = 1; zone <= dataSet->zoneCount(); ++zone)
            if (dataSet->zone(zone).enabled)
                set->add(zone);
        *enabledZones = set;
        return TRUE;
    }

    LgIndex_t VtxUtilSetGetNextMember(Set_pa set, LgIndex_t member)
    {
        Application& app = Enter(Call::SetGetNextMember);
        if (!set)
            return 0;
        if (!Sets(app).owns(set))
        {
            ReportProtocolError("VtxUtilSetGetNextMember was given a set the host does not hold");
            return 0;
        }
        return set->nextMember(member);
    }

    void VtxUtilSetDealloc(Set_pa* set)
    {
        Application& app = Enter(Call::SetDealloc);
        if (!set || !*set)
            return;
        if (!Sets(app).release(*set))
            ReportProtocolError("VtxUtilSetDealloc was given a set the host does not hold (released twice?)");
        *set = nullptr;
    }

    double VtxUtilZoneGetSolutionTime(EntIndex_t zone)
    {
        Application& app = Enter(Call::ZoneGetSolutionTime);
        const Zone* found = ZoneAskedFor(app, zone, "VtxUtilZoneGetSolutionTime");
        return found ? found->solutionTime : 0.0;
    }

    EntIndex_t VtxUtilZoneGetStrandID(EntIndex_t zone)
    {
        Application& app = Enter(Call::ZoneGetStrandID);
        const Zone* found = ZoneAskedFor(app, zone, "VtxUtilZoneGetStrandID");
        return found ? found->strandId : 0;
    }

} // extern "C"
