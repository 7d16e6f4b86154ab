// One parsed command of the host's macro language, and the line it is recorded as.
//
// Paths are absolute by the time a command is parsed, so that a recorded macro can be replayed from any
// folder.
#pragma once

#include <VtxUtil.h>

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace vantix::host::detail
{

namespace macro
{

struct LoadDemoData
{
};
struct LoadDataFile
{
    std::string path;
};
// A new 3D frame on top of the page; what is not given keeps the host's default (inches).
struct NewFrame
{
    std::optional<double> x, y, width, height;
};
struct SetPlotType
{
    PlotType_e plotType = PlotType_Cartesian3D;
};
struct SetStyleValue
{
    std::vector<std::string> path; // one to seven names
    std::variant<bool, double, std::string> value;
};
struct Rotate3DView
{
    RotateAxis_e axis = RotateAxis_Psi;
    double degrees = 0.0;
};
struct SetSolutionTime
{
    double time = 0.0;
};
struct Redraw
{
};
// An "ExportSetup" value as the export takes it from text: name and value as written.
struct ExportSetup
{
    std::string name;
    std::string valueText;
};
struct ExportStep
{
    enum class Step
    {
        Start,
        NextFrame,
        Finish,
        Cancel
    };
    Step step = Step::Start;
};
struct ExportStillImage
{
};
struct AddOnCommand
{
    std::string addOnID;
    std::string command;
};
struct LoadAddOn
{
    std::string path;
};

} // namespace macro

using MacroCommand =
    std::variant<macro::LoadDemoData, macro::LoadDataFile, macro::NewFrame, macro::SetPlotType,
                 macro::SetStyleValue, macro::Rotate3DView, macro::SetSolutionTime, macro::Redraw,
                 macro::ExportSetup, macro::ExportStep, macro::ExportStillImage, macro::AddOnCommand,
                 macro::LoadAddOn>;

// The command as one line of the macro language, in its normal form: command and keywords in capitals,
// " = " between a name and its value, numbers in their shortest exact form, texts quoted and escaped.
// Parsing the line gives back the same command.
std::string MacroCommandLine(const MacroCommand& command);

// The plot type keywords of $!PLOTTYPE.
const char* PlotTypeKeyword(PlotType_e plotType);
bool PlotTypeFromKeyword(const std::string& keyword, PlotType_e& plotType);

} // namespace vantix::host::detail
