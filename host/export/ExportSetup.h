// The host's "ExportSetup" settings: their style values, their keywords in macros, and a snapshot of them
// for one export.
#pragma once

#include "core/StyleTree.h"

#include <VtxUtil.h>

#include <optional>
#include <string>

namespace vantix::host::detail
{

struct ExportSettings
{
    ExportFormat_e format = ExportFormat_PNG;
    ExportRegion_e region = ExportRegion_CurrentFrame;
    int imageWidth = 800;
    double animationSpeed = 10.0; // frames per second
    bool supersample = false;
    int supersampleFactor = 3;
    AVICompression_e aviCompression = AVICompression_ColorPreserving;
    FlashImageType_e flashImageType = FlashImageType_Lossless;
    FlashCompressionType_e flashCompression = FlashCompressionType_BestSpeed;
    std::string fileName;
};

// Adds the "ExportSetup" settings, with their defaults, to a style tree. The export adds them to the
// host's own when it is loaded.
void DefineExportStyles(StyleTree& style);

// The current "ExportSetup" settings.
ExportSettings CurrentExportSettings();

bool IsAnimationFormat(ExportFormat_e format);

// Sets one setting as VtxUtilExportSetup does: numbers from number, everything else from any (the file name
// as a const char*). Returns the host's result; a refusal names its reason in why.
SetValueReturnCode_e SetExportValue(const std::string& name, double number, ArbParam_t any, std::string& why);

// The same from a macro's text: a keyword, a number, true/false, or a quoted file name.
SetValueReturnCode_e SetExportValueFromText(const std::string& name, const std::string& text,
                                            std::string& why);

} // namespace vantix::host::detail
