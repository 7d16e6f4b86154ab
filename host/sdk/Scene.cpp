// The data set of the active frame: zones, their times and strands, and sets of zone numbers.
#include "core/Application.h"
#include "scene/DataSet.h"
#include "scene/ZoneSet.h"

#include <string>

using vantix::host::detail::Application;
using vantix::host::detail::Call;
using vantix::host::detail::DataSet;
using vantix::host::detail::SetRegistry;
using vantix::host::detail::Zone;

namespace
{

const DataSet* ActiveDataSet(Application& app)
{
    const auto* frame = app.activeFrame();
    return frame ? frame->dataSet.get() : nullptr;
}

SetRegistry& Sets(Application& app)
{
    if (!app.m_sets)
        app.m_sets = std::make_shared<SetRegistry>();
    return *app.m_sets;
}

// The zone asked about, or null after reporting the protocol error of asking for one that is not there.
const Zone* ZoneAskedFor(Application& app, EntIndex_t zone, const char* function)
{
    const DataSet* dataSet = ActiveDataSet(app);
    if (dataSet && dataSet->isZone(zone))
        return &dataSet->zone(zone);
    app.reportError(std::string(function) + " was asked for zone " + std::to_string(zone) + ", but " +
                    (dataSet ? "the data set has zones 1 to " + std::to_string(dataSet->zoneCount())
                             : std::string("the active frame has no data set")));
    return nullptr;
}

} // namespace

extern "C"
{

    Boolean VtxUtilDataSetIsAvailable(void)
    {
        Application& app = Application::instance();
        app.note(Call::DataSetIsAvailable);
        return ActiveDataSet(app) ? TRUE : FALSE;
    }

    Boolean VtxUtilZoneGetEnabled(Set_pa* enabledZones)
    {
        Application& app = Application::instance();
        app.note(Call::ZoneGetEnabled);
        if (!enabledZones)
        {
            app.reportError("VtxUtilZoneGetEnabled was given no place for the set");
            return FALSE;
        }
        const DataSet* dataSet = ActiveDataSet(app);
        if (!dataSet)
            return FALSE; // the handle stays as it was: without a data set there is no set to make
        if (*enabledZones && app.m_sets && app.m_sets->owns(*enabledZones))
            app.reportError(
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
        Application& app = Application::instance();
        app.note(Call::SetGetNextMember);
        if (!set)
            return 0;
        if (!app.m_sets || !app.m_sets->owns(set))
        {
            app.reportError("VtxUtilSetGetNextMember was given a set the host does not hold");
            return 0;
        }
        return set->nextMember(member);
    }

    void VtxUtilSetDealloc(Set_pa* set)
    {
        Application& app = Application::instance();
        app.note(Call::SetDealloc);
        if (!set || !*set)
            return;
        if (!app.m_sets || !app.m_sets->release(*set))
            app.reportError("VtxUtilSetDealloc was given a set the host does not hold (released twice?)");
        *set = nullptr;
    }

    double VtxUtilZoneGetSolutionTime(EntIndex_t zone)
    {
        Application& app = Application::instance();
        app.note(Call::ZoneGetSolutionTime);
        const Zone* found = ZoneAskedFor(app, zone, "VtxUtilZoneGetSolutionTime");
        return found ? found->solutionTime : 0.0;
    }

    EntIndex_t VtxUtilZoneGetStrandID(EntIndex_t zone)
    {
        Application& app = Application::instance();
        app.note(Call::ZoneGetStrandID);
        const Zone* found = ZoneAskedFor(app, zone, "VtxUtilZoneGetStrandID");
        return found ? found->strandId : 0;
    }

} // extern "C"
