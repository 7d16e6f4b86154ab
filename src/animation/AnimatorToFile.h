#pragma once

#include "animation/AnimatorAbstract.h"

#include <cstddef>
#include <vector>

namespace vantix::vtxutiltools
{

// The innermost animator of an animation written to a file: the first frame drawn starts the host's
// animation export with its "ExportSetup" settings (which take the image the outer animators have set up as
// the first frame), every later frame adds the next image, a cancel abandons the export, and the end of the
// animation closes the file.
class AnimatorToFile : public virtual AnimatorAbstract
{
public:
    // Refuses a list of fewer than two key frames before anything in the host is touched.
    explicit AnimatorToFile(const std::vector<KeyFrame_s>& keyFrames);
    // Finishes the export this animator started, should it still be open: the file of a completed animation
    // is written here.
    ~AnimatorToFile() override;

    // Abandons the export this animator started; no partial file is left.
    void cancelAnimation() override;

protected:
    // The frame number plays no part: the host exports what it shows. Throws KeyFrameError at the first
    // frame when another export is open, when the export format holds no animation, or when the host cannot
    // start the export.
    void drawFrameAtIndex(std::size_t frame) override;

private:
    bool ownsOpenExport() const;

    // An export open in the host that this animator did not start (one the user left running, for example)
    // is not this animation's to finish: only the export started here is finished at the end. A cancel,
    // though, abandons whatever export is open.
    bool m_exportNotStarted = true;
};

} // namespace vantix::vtxutiltools
