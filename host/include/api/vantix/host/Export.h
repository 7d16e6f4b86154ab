// The host's own API for export: the text form of the "ExportSetup" values used by macros, still images,
// and the files of pictures and movies the host writes.
#pragma once

#include <vantix/host/Image.h>

#include <cstdint>
#include <string>
#include <vector>

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

// Why the last export operation failed (empty after a success).
std::string lastExportError();

// Abandons an export that is still open, for a replay that ended without finishing it: the earlier file at
// its path stays as it was. Returns the export's file name, or "" when no export was open.
std::string abandonOpenExport();
// The same after replaying a macro, said in one line: "<macroPath>: the macro ended with the export to <file>
// still open ($!EXPORTFINISH missing); it was not written", or "" when no export was open.
std::string abandonExportLeftOpenBy(const std::string& macroPath);

// The contents of a raster metafile, the host's own lossless movie file: every frame as RGB bytes, rows
// from the top down. Throws std::runtime_error for a file that is not one or is damaged.
struct RasterMetafileContents
{
    int width = 0;
    int height = 0;
    unsigned rateNumerator = 0;
    unsigned rateDenominator = 1;
    std::vector<std::vector<std::uint8_t>> frames;
};
RasterMetafileContents readRasterMetafile(const std::string& path);

// PNG files of pictures, through the same image codec as the export's still images. writePng throws
// std::runtime_error "cannot write <path>: <reason>"; readPng reads 8 and 16-bit grey, RGB,
// palette and RGBA files (alpha is dropped) and throws "cannot read PNG file '<path>': <reason>".
void writePng(const Image& image, const std::string& path);
Image readPng(const std::string& path);

} // namespace vantix::host
