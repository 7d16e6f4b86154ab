#pragma once

#include "core/MacroOption.h"

#include <cstddef>
#include <vector>

namespace vantix::vtxutiltools
{

struct KeyFrame_s;
struct Settings_s;

// Runs one animation to its end, holding the host lock throughout. Every frame of the whole list is
// computed; the frames drawn are the whole list's when keyFrameSpan is the number of key frames, otherwise
// those from key frame firstKeyFrame to key frame firstKeyFrame + keyFrameSpan, both included (a span of 0
// draws the single frame of key frame firstKeyFrame).
//
// Fails with KeyFrameError, the message for the user: not a 3D Cartesian frame, too few key frames, the user
// canceled, or (for exhausted memory and any std::logic_error, such as a range past the end of the list) the
// memory message. The host's display-list setting, progress line and lock are put back whatever happens;
// the view and solution time stay as the last frame drawn left them.
void Animate(const std::vector<KeyFrame_s>& keyFrames, std::size_t firstKeyFrame, std::size_t keyFrameSpan,
             const Settings_s& settings, MacroOption_e macroOption);

} // namespace vantix::vtxutiltools
