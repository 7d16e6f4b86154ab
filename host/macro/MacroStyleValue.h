// $!SETSTYLEVALUE: writes one style setting with the same checks as an add-on's StyleValue, the macro's
// value converted to the kind of value the setting takes.
#pragma once

#include <string>
#include <variant>
#include <vector>

namespace vantix::host::detail
{

// Throws MacroError with the reason when the setting is unknown, takes another kind of value, refuses the
// value or cannot be set now.
void WriteMacroStyleValue(const std::vector<std::string>& path,
                          const std::variant<bool, double, std::string>& value);

} // namespace vantix::host::detail
