#include "macro/MacroCommand.h"

#include "macro/MacroText.h"

namespace vantix::host::detail
{

namespace
{

struct PlotTypeName
{
    PlotType_e plotType;
    const char* keyword;
};

const PlotTypeName PlotTypeNames[] = {
    {PlotType_Automatic, "AUTOMATIC"},     {PlotType_Cartesian3D, "CARTESIAN3D"},
    {PlotType_Cartesian2D, "CARTESIAN2D"}, {PlotType_XYLine, "XYLINE"},
    {PlotType_Sketch, "SKETCH"},           {PlotType_PolarLine, "POLARLINE"},
};

std::string Quoted(const std::string& text)
{
    return QuoteMacroText(text, '"');
}

struct LineWriter
{
    std::string operator()(const macro::LoadDemoData&) const { return "$!LOADDATA DEMO"; }
    std::string operator()(const macro::LoadDataFile& c) const
    {
        return "$!LOADDATA FILE = " + Quoted(c.path);
    }
    std::string operator()(const macro::NewFrame& c) const
    {
        std::string line = "$!NEWFRAME";
        const auto add = [&line](const char* name, const std::optional<double>& value)
        {
            if (value)
                line += std::string(" ") + name + " = " + FormatMacroNumber(*value);
        };
        add("X", c.x);
        add("Y", c.y);
        add("WIDTH", c.width);
        add("HEIGHT", c.height);
        return line;
    }
    std::string operator()(const macro::SetPlotType& c) const
    {
        return std::string("$!PLOTTYPE = ") + PlotTypeKeyword(c.plotType);
    }
    std::string operator()(const macro::SetStyleValue& c) const
    {
        std::string line = "$!SETSTYLEVALUE";
        for (const std::string& name : c.path)
            line += " " + name;
        line += " = ";
        if (const bool* on = std::get_if<bool>(&c.value))
            line += *on ? "TRUE" : "FALSE";
        else if (const double* number = std::get_if<double>(&c.value))
            line += FormatMacroNumber(*number);
        else
            line += Quoted(std::get<std::string>(c.value));
        return line;
    }
    std::string operator()(const macro::Rotate3DView& c) const
    {
        const char* axis = c.axis == RotateAxis_Psi ? "PSI" : c.axis == RotateAxis_Theta ? "THETA" : "ALPHA";
        return std::string("$!ROTATE3DVIEW ") + axis + " = " + FormatMacroNumber(c.degrees);
    }
    std::string operator()(const macro::SetSolutionTime& c) const
    {
        return "$!SOLUTIONTIME = " + FormatMacroNumber(c.time);
    }
    std::string operator()(const macro::Redraw&) const { return "$!REDRAW"; }
    std::string operator()(const macro::ExportSetup& c) const
    {
        return "$!EXPORTSETUP " + c.name + " = " + c.valueText;
    }
    std::string operator()(const macro::ExportStep& c) const
    {
        switch (c.step)
        {
        case macro::ExportStep::Step::Start:
            return "$!EXPORTSTART";
        case macro::ExportStep::Step::NextFrame:
            return "$!EXPORTNEXTFRAME";
        case macro::ExportStep::Step::Finish:
            return "$!EXPORTFINISH";
        case macro::ExportStep::Step::Cancel:
            break;
        }
        return "$!EXPORTCANCEL";
    }
    std::string operator()(const macro::ExportStillImage&) const { return "$!EXPORT"; }
    std::string operator()(const macro::AddOnCommand& c) const
    {
        return "$!ADDONCOMMAND ADDONID = " + QuoteMacroText(c.addOnID, '\'') +
               " COMMAND = " + QuoteMacroText(c.command, '\'');
    }
    std::string operator()(const macro::LoadAddOn& c) const { return "$!LOADADDON " + Quoted(c.path); }
};

} // namespace

std::string MacroCommandLine(const MacroCommand& command)
{
    return std::visit(LineWriter(), command);
}

const char* PlotTypeKeyword(PlotType_e plotType)
{
    for (const PlotTypeName& name : PlotTypeNames)
        if (name.plotType == plotType)
            return name.keyword;
    return "INVALID";
}

bool PlotTypeFromKeyword(const std::string& keyword, PlotType_e& plotType)
{
    for (const PlotTypeName& name : PlotTypeNames)
        if (SameMacroWord(keyword, name.keyword))
        {
            plotType = name.plotType;
            return true;
        }
    return false;
}

} // namespace vantix::host::detail
