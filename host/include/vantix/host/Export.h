// The host's own API for export: the text form of the "ExportSetup" values used by macros, and still
// images.
#pragma once

#include <string>

namespace vantix::host
{

// Sets one "ExportSetup" value from its macro text: `setExportSetupFromText("ExportFormat", "MPEG4")`,
// `("ImageWidth", "1280")`, `("AnimationSpeed", "30")`, `("UseSuperSampleAntiAliasing", "true")`,
// `("ExportFName", "\"movie.mp4\"")`. Names and keywords in any case. Throws std::invalid_argument with
// the reason for an unknown name or a value the setting does not take.
void setExportSetupFromText(const std::string& name, const std::string& valueText);

// Writes the export region as one image in the still-image format of "ExportFormat" to "ExportFName".
// Throws std::runtime_error with the reason when the format is not a still-image format or the file cannot
// be written.
void exportStillImage();

} // namespace vantix::host
