#include "animation/AnimatorTime.h"

#include "core/KeyFrame.h"
#include "core/Settings.h"

#include <VtxUtil.h>

#include <algorithm>
#include <utility>

namespace vantix::vtxutiltools
{

namespace
{

// The host's set of the enabled zones of the active frame, released when this goes.
class EnabledZones
{
public:
    EnabledZones() { VtxUtilZoneGetEnabled(&m_set); }
    ~EnabledZones()
    {
        if (m_set)
            VtxUtilSetDealloc(&m_set);
    }

    EnabledZones(const EnabledZones&) = delete;
    EnabledZones& operator=(const EnabledZones&) = delete;

    // The zone after zone (0 to begin); 0 after the last and for a set the host did not make.
    EntIndex_t next(EntIndex_t zone) const
    {
        return m_set ? static_cast<EntIndex_t>(VtxUtilSetGetNextMember(m_set, zone)) : 0;
    }

private:
    Set_pa m_set = nullptr;
};

} // namespace

AnimatorTime::AnimatorTime(const std::vector<KeyFrame_s>& keyFrames,
                           const TimeAnimationOptions_s& timeOptions, InnerAnimator innerAnimator)
    : AnimatorAbstract(keyFrames, std::move(innerAnimator))
{
    m_times.reserve(numTotalFrames());
    calculateSolutionTimes(keyFrames, timeOptions);
}

void AnimatorTime::drawFrameAtIndex(std::size_t frame)
{
    VtxUtilSolutionTimeSetCurrent(m_times.at(frame));
}

void AnimatorTime::createInterpolatedTimes(double start, double end, std::size_t count,
                                           std::vector<double>& out)
{
    out.clear();
    out.reserve(count);
    // A single value has no step to the end: it is where the run begins, so that a cycle squeezed into one
    // frame still starts each cycle at the start time rather than at a value that is not a number.
    if (count == 1)
    {
        out.push_back(start);
        return;
    }
    for (std::size_t i = 0; i < count; ++i)
        out.push_back(start + static_cast<double>(i) * (end - start) / static_cast<double>(count - 1));
}

void AnimatorTime::calculateSolutionTimes(const std::vector<KeyFrame_s>& keyFrames,
                                          const TimeAnimationOptions_s& timeOptions)
{
    // The producers of the settings allow at least one cycle; zero cycles would divide the frames by zero
    // and are taken as the one cycle the user most likely meant.
    const std::uint64_t cycles = std::max<std::uint64_t>(timeOptions.numCycles, 1);
    switch (timeOptions.timeAnimationOperation)
    {
    case Forward:
        calculatedSolutionTimesForward();
        break;
    case Loop:
        calculatedSolutionTimesLoop(cycles);
        break;
    case Bounce:
        calculatedSolutionTimesBounce(cycles);
        break;
    case AsCaptured:
        calculateSolutionTimesAsCaptured(keyFrames);
        break;
    }
}

void AnimatorTime::calculatedSolutionTimesForward()
{
    calculatedSolutionTimesLoop(1);
}

void AnimatorTime::calculatedSolutionTimesLoop(std::uint64_t cycles)
{
    // With no enabled zone there is no range of times to run through: the range is the current solution time
    // alone, so that time stands still instead of jumping to a time no zone has.
    m_earliestTime = m_latestTime = VtxUtilSolutionTimeGetCurrent();
    GetSolutionTimeMinMax(m_earliestTime, m_latestTime);

    std::vector<double> cycle;
    createInterpolatedTimes(m_earliestTime, m_latestTime, numTotalFrames() / cycles, cycle);
    // More cycles than frames leave every cycle empty; there is nothing to repeat then.
    if (!cycle.empty())
        for (std::uint64_t i = 0; i < cycles; ++i)
            m_times.insert(m_times.end(), cycle.begin(), cycle.end());
    fillWithLatestTime();
}

void AnimatorTime::calculatedSolutionTimesBounce(std::uint64_t cycles)
{
    m_earliestTime = m_latestTime = VtxUtilSolutionTimeGetCurrent();
    GetSolutionTimeMinMax(m_earliestTime, m_latestTime);

    std::vector<double> cycle;
    createInterpolatedTimes(m_earliestTime, m_latestTime, (numTotalFrames() / cycles) / 2, cycle);
    if (!cycle.empty())
        for (std::uint64_t i = 0; i < cycles; ++i)
        {
            m_times.insert(m_times.end(), cycle.begin(), cycle.end());
            m_times.insert(m_times.end(), cycle.rbegin(), cycle.rend());
        }
    fillWithLatestTime();
}

void AnimatorTime::calculateSolutionTimesAsCaptured(const std::vector<KeyFrame_s>& keyFrames)
{
    std::vector<std::size_t> counts;
    ExtractFrameCounts(keyFrames, counts);
    std::vector<double> times;
    ExtractSolutionTimes(keyFrames, times);

    std::vector<double> segment;
    for (std::size_t i = 0; i + 1 < times.size(); ++i)
    {
        // The segment's last time is the next key frame's own, which that key frame's segment begins with.
        createInterpolatedTimes(times[i], times[i + 1], counts[i] + 1, segment);
        if (!segment.empty())
            m_times.insert(m_times.end(), segment.begin(), segment.end() - 1);
    }
    m_times.push_back(times.back());
}

void AnimatorTime::fillWithLatestTime()
{
    m_times.resize(numTotalFrames(), m_latestTime);
}

void GetSolutionTimeMinMax(double& minTime, double& maxTime)
{
    const EnabledZones zones;
    bool first = true;
    for (EntIndex_t zone = zones.next(0); zone != 0; zone = zones.next(zone))
    {
        const double time = VtxUtilZoneGetSolutionTime(zone);
        if (first)
        {
            minTime = time;
            maxTime = time;
            first = false;
            continue;
        }
        minTime = std::min(time, minTime);
        if (maxTime < time)
            maxTime = time;
    }
}

bool DataSetIsTransient()
{
    if (!VtxUtilDataSetIsAvailable())
        return false;
    const EnabledZones zones;
    for (EntIndex_t zone = zones.next(0); zone != 0; zone = zones.next(zone))
        if (VtxUtilZoneGetStrandID(zone) > 0)
            return true;
    return false;
}

} // namespace vantix::vtxutiltools
