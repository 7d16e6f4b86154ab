#pragma once

#include "animation/AnimatorAbstract.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace vantix::vtxutiltools
{

struct KeyFrame_s;
struct TimeAnimationOptions_s;

// Sets the solution time of every frame, so that time runs while the view moves. All times are computed
// when the animator is built; drawing a frame only hands its time to the host, before the innermost
// animator draws or exports the frame. The host's solution time is not put back afterwards: it stays at the
// last frame drawn, like the view.
class AnimatorTime : public AnimatorAbstract
{
public:
    // Computes one time per frame of the whole list as the options' operation says: Forward once from the
    // earliest to the latest time of the enabled zones, Loop and Bounce numCycles times over that range, or
    // AsCaptured through the times captured with the key frames. An operation the animator does not know
    // leaves it without times, and every frame then throws std::out_of_range when drawn.
    AnimatorTime(const std::vector<KeyFrame_s>& keyFrames, const TimeAnimationOptions_s& timeOptions,
                 InnerAnimator innerAnimator);

    // Replaces out with count times spread evenly from start to end, both included. A count of 0 gives
    // none; a count of 1 gives start alone.
    static void createInterpolatedTimes(double start, double end, std::size_t count,
                                        std::vector<double>& out);

protected:
    // Makes the frame's time the host's current solution time; a frame past the last throws
    // std::out_of_range.
    void drawFrameAtIndex(std::size_t frame) override;

private:
    void calculateSolutionTimes(const std::vector<KeyFrame_s>& keyFrames,
                                const TimeAnimationOptions_s& timeOptions);
    void calculatedSolutionTimesForward();
    // Each cycle runs from the earliest to the latest time; the frames the cycles leave over show the latest.
    void calculatedSolutionTimesLoop(std::uint64_t cycles);
    // Each cycle runs up and back down again, both turning times shown twice; the frames the cycles leave
    // over show the latest time.
    void calculatedSolutionTimesBounce(std::uint64_t cycles);
    // Each key frame's frame shows the time captured with it, and the frames between two key frames are
    // spread evenly between their times.
    void calculateSolutionTimesAsCaptured(const std::vector<KeyFrame_s>& keyFrames);

    // Appends copies of the latest time until there is one time per frame.
    void fillWithLatestTime();

    std::vector<double> m_times; // the time of frame i at index i
    double m_earliestTime = 0.0;
    double m_latestTime = 0.0;
};

// The earliest and latest solution time of the enabled zones of the active frame's data set. With no data
// set or no enabled zone both outputs are left as they were.
void GetSolutionTimeMinMax(double& minTime, double& maxTime);

// True when the active frame has a data set of which an enabled zone belongs to a time strand, so that
// animating its solution time shows something.
bool DataSetIsTransient();

} // namespace vantix::vtxutiltools
