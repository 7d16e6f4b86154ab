// The example of a complete key frame file that the file tests and the fuzz program start from: the default
// settings with time animation on, and two key frames.
#pragma once

#include <string>

namespace testsupport
{

inline const std::string KeyFrameExampleText =
    "#!KeyFrame 1\n\n%Settings\n AnimateTime true\n TimeAnimationOperation Forward\n NumCycles 1\n"
    " AnimateStreamtraces false\n FadeIn false\n FadeOut false\n%Settings\n\n"
    "%KeyFrameView\n Name \"View 1\"\n Position 12.3457 -4.5 30\n Angle 123.457 57.2958 0\n Width 1.75\n"
    " FrameCount 20\n SolutionTime 0\n%KeyFrameView\n\n"
    "%KeyFrameView\n Name \"View 2\"\n Position 18.5 40 -130\n Angle 35.2644 0 0\n Width 0.0001\n"
    " FrameCount 1\n SolutionTime 2.5e-05\n%KeyFrameView";

} // namespace testsupport
