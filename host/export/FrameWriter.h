// Writes the frames of one export into its file. A writer that is destroyed before finish() abandons the
// export and removes the file, so that a cancelled or failed export leaves nothing behind.
#pragma once

#include "core/Image.h"

#include <VtxUtil.h>

#include <memory>
#include <stdexcept>
#include <string>

namespace vantix::host::detail
{

// Why an export cannot go on, in words for the user.
class ExportError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

struct MovieOptions
{
    ExportFormat_e format = ExportFormat_MPEG4;
    std::string path;
    int width = 0;  // even
    int height = 0; // even
    double framesPerSecond = 10.0;
    AVICompression_e aviCompression = AVICompression_ColorPreserving;
    FlashImageType_e flashImageType = FlashImageType_Lossless;
    FlashCompressionType_e flashCompression = FlashCompressionType_BestSpeed;
};

class FrameWriter
{
public:
    virtual ~FrameWriter() = default;
    // Appends one image of the writer's size. Throws ExportError.
    virtual void write(const Image& image) = 0;
    // Completes the file. Throws ExportError (the file is then removed).
    virtual void finish() = 0;
};

// Opens the file for an animation format. Throws ExportError when the file cannot be written or the
// format holds no animation.
std::unique_ptr<FrameWriter> OpenFrameWriter(const MovieOptions& options);

// Writes one image in a still-image format (PNG, BMP, TIFF, JPEG). Throws ExportError.
void WriteStillImage(ExportFormat_e format, const Image& image, const std::string& path);

} // namespace vantix::host::detail
