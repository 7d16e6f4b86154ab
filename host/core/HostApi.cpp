// The host's own API over the one Application.
#include "core/Application.h"
#include "events/StateChanges.h"

#include <vantix/host/Events.h>
#include <vantix/host/Host.h>

#include <stdexcept>

namespace vantix::host
{

namespace
{

detail::Application& App()
{
    return detail::Application::instance();
}

const detail::StyleSetting& SettingAt(const std::vector<std::string>& path)
{
    const detail::StyleNode* node = App().style().find(path);
    if (!node || !node->isSetting())
    {
        std::string joined;
        for (const auto& name : path)
            joined += (joined.empty() ? "" : "/") + name;
        throw std::invalid_argument("unknown style setting: " + joined);
    }
    return node->setting();
}

detail::StyleKind KindOf(const detail::StyleSetting& setting, const StyleData& value)
{
    // The API's int stands for both integers and enumerations.
    if (std::holds_alternative<int>(value) && setting.kind == detail::StyleKind::Enumeration)
        return detail::StyleKind::Enumeration;
    switch (value.index())
    {
    case 0:
        return detail::StyleKind::Boolean;
    case 1:
        return detail::StyleKind::Integer;
    case 2:
        return detail::StyleKind::Double;
    default:
        return detail::StyleKind::Text;
    }
}

} // namespace

void reset()
{
    App().reset();
}

std::vector<AddOnInfo> registeredAddOns()
{
    std::vector<AddOnInfo> result;
    for (const auto& addOn : App().addOns().all())
        result.push_back({addOn.get(), addOn->sdkVersion, addOn->name, addOn->version, addOn->author});
    return result;
}

int lockDepth(AddOn_pa addOn)
{
    return App().addOns().lockDepth(addOn);
}
int globalLockDepth()
{
    return App().addOns().globalLockDepth();
}

UniqueID_t addFrame(PlotType_e plotType)
{
    return App().page().addFrame(plotType).id;
}
void setPlotType(PlotType_e plotType)
{
    App().page().setPlotType(plotType);
}

void deleteFrame(UniqueID_t uniqueID)
{
    if (App().page().walking())
        throw std::logic_error("a frame cannot be deleted during a lightweight frame walk");
    if (!App().page().deleteFrame(uniqueID))
        throw std::invalid_argument("the page has no frame " + std::to_string(uniqueID));
}

std::vector<UniqueID_t> frameStack()
{
    std::vector<UniqueID_t> ids;
    for (const auto& frame : App().page().frames())
        ids.push_back(frame->id);
    return ids;
}

UniqueID_t activeFrame()
{
    const detail::Frame* frame = App().page().activeFrame();
    return frame ? frame->id : 0;
}

bool activateFrame(UniqueID_t uniqueID)
{
    return App().page().activate(uniqueID);
}

ViewState view()
{
    const detail::View3D& v = App().page().requireActiveFrame().view;
    ViewState state;
    state.x = v.position()[0];
    state.y = v.position()[1];
    state.z = v.position()[2];
    state.psi = v.psi();
    state.theta = v.theta();
    state.alpha = v.alpha();
    state.width = v.width();
    state.perspective = v.perspective();
    state.fieldOfView = v.fieldOfView();
    state.originX = v.rotationOrigin()[0];
    state.originY = v.rotationOrigin()[1];
    state.originZ = v.rotationOrigin()[2];
    return state;
}

void setView(const ViewState& state)
{
    detail::View3D& v = App().page().requireActiveFrame().view;
    if (!v.setFieldOfView(state.fieldOfView))
        throw std::invalid_argument("the field of view must lie between 0 and 180 degrees");
    v.setPerspective(false); // no dolly: the width is taken as given
    v.setWidth(state.width);
    v.setPerspective(state.perspective);
    v.setPosition({state.x, state.y, state.z});
    v.setAngle(detail::View3D::Axis::Psi, state.psi);
    v.setAngle(detail::View3D::Axis::Theta, state.theta);
    v.setAngle(detail::View3D::Axis::Alpha, state.alpha);
    v.setRotationOrigin({state.originX, state.originY, state.originZ});
    detail::RaiseStateChange(StateChange_View3D);
}

std::vector<double> viewMatrix()
{
    const detail::Matrix3 m = App().page().requireActiveFrame().view.matrix();
    return std::vector<double>(m.begin(), m.end());
}

void setStyle(const std::vector<std::string>& path, const StyleData& value)
{
    auto& setting = const_cast<detail::StyleSetting&>(SettingAt(path));
    const SetValueReturnCode_e result = detail::WriteSetting(setting, KindOf(setting, value), value, 0);
    if (result != SetValueReturnCode_Ok && result != SetValueReturnCode_DuplicateValue)
        throw std::invalid_argument("the style setting refused the value (code " + std::to_string(result) +
                                    ")");
}

StyleData style(const std::vector<std::string>& path)
{
    const detail::StyleSetting& setting = SettingAt(path);
    detail::StyleData value;
    if (detail::ReadSetting(setting, setting.kind, value) != GetValueReturnCode_Ok)
        throw std::invalid_argument("the style setting cannot be read now");
    return value;
}

int redrawCount()
{
    return App().drawing().redraws();
}
int skippedRedrawCount()
{
    return App().drawing().skippedRedraws();
}
int drawSuspensionDepth()
{
    return App().drawing().suspensionDepth();
}

double solutionTime()
{
    return App().page().requireActiveFrame().solutionTime;
}
void setSolutionTime(double solutionTime)
{
    App().page().requireActiveFrame().solutionTime = solutionTime;
}

std::vector<StatusEvent> statusEvents()
{
    return App().status().events();
}
bool statusIsShown()
{
    return App().status().isShown();
}
std::string statusText()
{
    return App().status().text();
}

void scriptCancelAtCheck(int n)
{
    if (n < 1)
        throw std::invalid_argument("a scripted cancel counts checks from 1");
    App().status().scriptCancelAtCheck(n);
}

void requestCancel()
{
    App().status().requestCancel();
}

void requestCancelFromSignal()
{
    App().requestCancelFromSignal();
}

void setStatusObserver(std::function<void(const StatusEvent&)> observer)
{
    App().setStatusObserver(std::move(observer));
}

long outstandingHostStrings()
{
    return App().strings().outstanding();
}

void setMacroRecording(bool on)
{
    App().setMacroRecording(on);
}
std::vector<std::string> recordedMacroLines()
{
    return App().recordedMacroLines();
}

void setTracing(bool on)
{
    App().calls().setTracing(on);
}
std::vector<std::string> trace()
{
    return App().calls().trace();
}

long callCount(const std::string& functionName)
{
    for (std::size_t i = 0; i < detail::CallCount; ++i)
        if (functionName == detail::CallName(static_cast<detail::Call>(i)))
            return App().calls().count(static_cast<detail::Call>(i));
    throw std::invalid_argument("not an SDK function the host counts: " + functionName);
}

long outstandingArgLists()
{
    return App().argLists().outstanding();
}

} // namespace vantix::host
