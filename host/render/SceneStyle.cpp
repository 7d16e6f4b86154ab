#include "render/SceneStyle.h"

#include <algorithm>

namespace vantix::host::detail
{

namespace
{

template <typename T>
void Read(const StyleTree& style, std::initializer_list<std::string_view> path, StyleKind kind, T& into)
{
    const StyleNode* node = style.find(path);
    if (!node || !node->isSetting())
        return;
    StyleData value;
    if (ReadSetting(node->setting(), kind, value) == GetValueReturnCode_Ok &&
        std::holds_alternative<T>(value))
        into = std::get<T>(value);
}

} // namespace

double SceneStyle::overallLight() const
{
    return std::clamp((intensity + backgroundLight) / 100.0, 0.0, 1.0);
}

SceneStyle ReadSceneStyle(const StyleTree& style)
{
    SceneStyle scene;
    Read(style, {"GlobalThreeD", "LightSource", "Intensity"}, StyleKind::Double, scene.intensity);
    Read(style, {"GlobalThreeD", "LightSource", "BackgroundLight"}, StyleKind::Double, scene.backgroundLight);
    Read(style, {"ThreeDAxis", "FrameAxis", "Show"}, StyleKind::Boolean, scene.showFrameAxis);
    Read(style, {"StreamAttributes", "StreamTiming", "TimeAnchor"}, StyleKind::Double, scene.timeAnchor);
    Read(style, {"StreamAttributes", "StreamTiming", "DeltaTime"}, StyleKind::Double, scene.deltaTime);
    Read(style, {"StreamAttributes", "StreamTiming", "ShowMarkers"}, StyleKind::Boolean, scene.showMarkers);
    Read(style, {"StreamAttributes", "StreamTiming", "ShowDashes"}, StyleKind::Boolean, scene.showDashes);
    return scene;
}

} // namespace vantix::host::detail
