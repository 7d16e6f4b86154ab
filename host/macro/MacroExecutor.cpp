#include "macro/MacroExecutor.h"

#include "core/Application.h"
#include "core/InputExcerpt.h"
#include "events/StateChanges.h"
#include "export/Exporter.h"
#include "macro/AddOnModules.h"
#include "macro/MacroCommands.h"
#include "macro/MacroError.h"
#include "macro/MacroStyleValue.h"

#include <vantix/host/Export.h>
#include <vantix/host/Host.h>
#include <vantix/host/Scene.h>

#include <exception>
#include <vector>

namespace vantix::host::detail
{

namespace
{

// A refusal of the host's own API shows one or two quoted pieces of the macro and says why.
constexpr std::size_t ApiRefusalLength = 300;

Application& App()
{
    return Application::instance();
}

// Runs an add-on's command callback with a copy of the text that the add-on may change, and releases the
// message it returns.
void RunAddOnCommand(const macro::AddOnCommand& command)
{
    const MacroCommandCallback_pf callback = MacroCommandsOf(App()).find(command.addOnID);
    if (!callback)
        throw MacroError("no add-on has registered macro commands under the id '" +
                         InputExcerpt(command.addOnID) + "'");

    std::vector<char> text(command.command.begin(), command.command.end());
    text.push_back('\0');
    char* message = nullptr;
    Boolean done = FALSE;
    try
    {
        done = callback(text.data(), &message);
    }
    catch (...)
    {
        // An add-on must not let an exception out; should one arrive anyway, it ends this command only.
        throw MacroError("the macro command callback of add-on '" + InputExcerpt(command.addOnID) +
                         "' threw an exception");
    }
    const std::string reason = message ? message : "";
    App().strings().release(&message);
    if (!done)
        throw MacroError(reason.empty() ? "add-on '" + InputExcerpt(command.addOnID) +
                                              "' refused the command without saying why"
                                        : reason);
}

// The export's reason may name the file the macro gave, control bytes and all.
[[noreturn]] void ExportFailed(const std::string& what)
{
    const std::string& why = LastExportError();
    throw MacroError(why.empty() ? what : what + ": " + InputExcerpt(why, ApiRefusalLength));
}

void RunExportStep(const macro::ExportStep& command)
{
    switch (command.step)
    {
    case macro::ExportStep::Step::Start:
        if (!StartExport())
            ExportFailed("the export could not be started");
        return;
    case macro::ExportStep::Step::NextFrame:
        if (!AddExportFrame())
            ExportFailed("the next frame could not be exported");
        return;
    case macro::ExportStep::Step::Finish:
        if (!FinishExport())
            ExportFailed("the export could not be finished");
        return;
    case macro::ExportStep::Step::Cancel:
        CancelExport();
        return;
    }
}

void RunNewFrame(const macro::NewFrame& command)
{
    const UniqueID_t frame = vantix::host::addFrame(PlotType_Cartesian3D);
    FramePlacement placement = framePlacement(frame);
    placement.x = command.x.value_or(placement.x);
    placement.y = command.y.value_or(placement.y);
    placement.width = command.width.value_or(placement.width);
    placement.height = command.height.value_or(placement.height);
    setFramePlacement(frame, placement);
}

// The view turns about a view axis and the viewer orbits the rotation origin with it.
void RunRotate3DView(const macro::Rotate3DView& command)
{
    Frame* frame = App().page().active3DFrame();
    if (!frame)
        throw MacroError("the view cannot be rotated: the active frame is not a 3D plot");
    const View3D::Axis axis = command.axis == RotateAxis_Psi     ? View3D::Axis::Psi
                              : command.axis == RotateAxis_Theta ? View3D::Axis::Theta
                                                                 : View3D::Axis::Alpha;
    frame->view.rotate(axis, command.degrees, frame->view.rotationOrigin());
    RaiseStateChange(StateChange_View3D);
}

void RequireFrame(const char* toDo)
{
    if (!App().page().activeFrame())
        throw MacroError(std::string("there is no frame to ") + toDo);
}

struct Executor
{
    void operator()(const macro::LoadDemoData&) const { loadDemoDataSet(); }
    void operator()(const macro::LoadDataFile& c) const { loadDataFile(c.path); }
    void operator()(const macro::NewFrame& c) const { RunNewFrame(c); }
    void operator()(const macro::SetPlotType& c) const
    {
        RequireFrame("set the plot type of");
        setPlotType(c.plotType);
    }
    void operator()(const macro::SetStyleValue& c) const { WriteMacroStyleValue(c.path, c.value); }
    void operator()(const macro::Rotate3DView& c) const { RunRotate3DView(c); }
    void operator()(const macro::SetSolutionTime& c) const
    {
        RequireFrame("set the solution time of");
        setSolutionTime(c.time);
    }
    void operator()(const macro::Redraw&) const
    {
        RequireFrame("redraw");
        App().redraw();
    }
    void operator()(const macro::ExportSetup& c) const { setExportSetupFromText(c.name, c.valueText); }
    void operator()(const macro::ExportStep& c) const { RunExportStep(c); }
    void operator()(const macro::ExportStillImage&) const { exportStillImage(); }
    void operator()(const macro::AddOnCommand& c) const { RunAddOnCommand(c); }
    void operator()(const macro::LoadAddOn& c) const { AddOnModulesOf(App()).load(c.path); }
};

} // namespace

void RunMacroCommand(const MacroCommand& command)
{
    try
    {
        std::visit(Executor(), command);
    }
    catch (const MacroError&)
    {
        throw;
    }
    catch (const std::exception& error)
    {
        // The host's own API reports its refusals (a file that cannot be read, an export setting it does
        // not know) as exceptions whose message says why, and may quote a path or a value of the macro
        // whole: the macro's message stays one line of bounded length all the same.
        throw MacroError(InputExcerpt(error.what(), ApiRefusalLength));
    }
}

} // namespace vantix::host::detail
