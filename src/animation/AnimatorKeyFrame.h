#pragma once

#include "animation/AnimatorAbstract.h"
#include "core/View.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace vantix::vtxutiltools
{

// The outermost animator of every chain: sets the view of each frame. All views are computed when it is
// built, so that drawing a frame only applies a view.
//
// Between two key views the host's own view is stepped towards the next key view with the host's own
// rotation, and each view reached is read back from the host: the path is the one the host's rotation
// takes (the viewer orbits the rotation origin), and only the translation and the width still missing after
// the turn are spread evenly. Building changes the host's view and does not put it back; the first frame
// drawn applies its own view.
class AnimatorKeyFrame : public AnimatorAbstract
{
public:
    // Computes the view of every frame of the whole list under the progress line "Creating interpolated
    // views....". Throws KeyFrameError for fewer than two key frames, a frame that is not 3D Cartesian, or a
    // cancel; std::length_error or std::bad_alloc for more frames than memory holds.
    AnimatorKeyFrame(const std::vector<KeyFrame_s>& keyFrames, InnerAnimator innerAnimator);

protected:
    // Applies the view of the frame; a frame past the last throws std::out_of_range.
    void drawFrameAtIndex(std::size_t frame) override;

private:
    // Key frame k's view, exactly as captured, goes to frame F(k), the sum of the frame counts before it; the
    // frameCounts[k] - 1 views computed towards the next key view follow it. A key frame whose frame count is
    // 0 has no frame of its own: the next key view takes its frame.
    void buildViewList(const std::vector<View>& views, const std::vector<std::size_t>& frameCounts);

    std::vector<View> m_views; // the view of frame i at index i
};

} // namespace vantix::vtxutiltools
