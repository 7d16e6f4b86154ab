#include "macro/MacroStyleValue.h"

#include "core/Application.h"
#include "core/InputExcerpt.h"
#include "macro/MacroError.h"
#include "macro/MacroText.h"

#include <climits>
#include <cmath>

namespace vantix::host::detail
{

namespace
{

using MacroValue = std::variant<bool, double, std::string>;

const char* Describe(StyleKind kind)
{
    switch (kind)
    {
    case StyleKind::Boolean:
        return "a switch (TRUE or FALSE)";
    case StyleKind::Integer:
        return "a whole number";
    case StyleKind::Enumeration:
        return "a choice (its number)";
    case StyleKind::Double:
        return "a number";
    case StyleKind::Text:
        break;
    }
    return "a quoted text";
}

const char* Describe(const MacroValue& value)
{
    return std::holds_alternative<bool>(value)     ? "a switch"
           : std::holds_alternative<double>(value) ? "a number"
                                                   : "a quoted text";
}

std::string ValueText(const MacroValue& value)
{
    if (const bool* on = std::get_if<bool>(&value))
        return *on ? "TRUE" : "FALSE";
    if (const double* number = std::get_if<double>(&value))
        return FormatMacroNumber(*number);
    return InputExcerpt(QuoteMacroText(std::get<std::string>(value), '"'));
}

bool IsWholeNumber(double value)
{
    return std::floor(value) == value && value >= INT_MIN && value <= INT_MAX;
}

// The value as the setting's kind takes it; false when it is of another kind.
bool Convert(const MacroValue& value, StyleKind kind, StyleData& data)
{
    switch (kind)
    {
    case StyleKind::Boolean:
        if (!std::holds_alternative<bool>(value))
            return false;
        data = std::get<bool>(value);
        return true;
    case StyleKind::Integer:
    case StyleKind::Enumeration:
        if (!std::holds_alternative<double>(value) || !IsWholeNumber(std::get<double>(value)))
            return false;
        data = static_cast<int>(std::get<double>(value));
        return true;
    case StyleKind::Double:
        if (!std::holds_alternative<double>(value))
            return false;
        data = std::get<double>(value);
        return true;
    case StyleKind::Text:
        break;
    }
    if (!std::holds_alternative<std::string>(value))
        return false;
    data = std::get<std::string>(value);
    return true;
}

} // namespace

void WriteMacroStyleValue(const std::vector<std::string>& path, const MacroValue& value)
{
    std::string names;
    for (const std::string& name : path)
        names += (names.empty() ? "" : "/") + name;
    const std::string pathText = InputExcerpt(names);

    StyleNode* node = const_cast<StyleNode*>(Application::instance().style().find(path));
    if (!node || !node->isSetting())
        throw MacroError("unknown style setting " + pathText);
    StyleSetting& setting = node->setting();
    StyleData data;
    if (!Convert(value, setting.kind, data))
        throw MacroError(pathText + " takes " + Describe(setting.kind) + ", not " + Describe(value) + " (" +
                         ValueText(value) + ")");

    Application::instance().calls().noteStyleWrite(node->path());
    switch (WriteSetting(setting, setting.kind, data, 0))
    {
    case SetValueReturnCode_Ok:
    case SetValueReturnCode_DuplicateValue: // it had that value already: done all the same
        return;
    case SetValueReturnCode_InvalidValue:
        throw MacroError(pathText + " refused the value " + ValueText(value));
    case SetValueReturnCode_ContextError:
        throw MacroError(pathText +
                         " cannot be set in the present state of the host (the view settings need " +
                         "an active 3D frame)");
    case SetValueReturnCode_InvalidName:
    case SetValueReturnCode_InvalidType:
        break;
    }
    throw MacroError(pathText + " refused the value " + ValueText(value) + " as of the wrong type");
}

} // namespace vantix::host::detail
