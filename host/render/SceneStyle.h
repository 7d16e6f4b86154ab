// The style settings that change a picture, read from the host's style tree for each picture.
#pragma once

#include "core/StyleTree.h"

namespace vantix::host::detail
{

struct SceneStyle
{
    double intensity = 75.0;       // "GlobalThreeD" "LightSource" "Intensity", percent
    double backgroundLight = 25.0; // "GlobalThreeD" "LightSource" "BackgroundLight", percent
    bool showFrameAxis = true;     // "ThreeDAxis" "FrameAxis" "Show"
    double timeAnchor = 0.0;       // "StreamAttributes" "StreamTiming" "TimeAnchor"
    double deltaTime = 1.0;        // "StreamAttributes" "StreamTiming" "DeltaTime"
    bool showMarkers = false;      // "StreamAttributes" "StreamTiming" "ShowMarkers"
    bool showDashes = false;       // "StreamAttributes" "StreamTiming" "ShowDashes"

    // The light that reaches what is not lit by the light source itself (the background, lines,
    // markers): the two lights together, so that 75 % + 25 % is full light and a fade of both to 0 is
    // black, up to full brightness.
    double overallLight() const;
};

// Settings the tree does not hold keep the defaults above.
SceneStyle ReadSceneStyle(const StyleTree& style);

} // namespace vantix::host::detail
