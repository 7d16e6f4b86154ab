// Writes the frames of one export into its file, whole or not at all: a writer that is destroyed before
// finish() abandons the export, and the file at its path stays as it was.
#pragma once

#include "core/Image.h"

#include <VtxUtil.h>
#include <vantix/toolbox/ReplacingFile.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <utility>

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
    void write(const Image& image);
    // Throws ExportError for an image that is not of the writer's size.
    void checkSize(const Image& image) const;
    // Completes the file and puts it in place of the earlier one. Throws ExportError (the earlier file then
    // stays).
    void finish();

protected:
    // kind names the file in messages: "movie", "raster metafile".
    FrameWriter(const MovieOptions& options, std::string kind);
    const std::string& path() const { return m_file.path(); }
    // The file the writer fills; put in place by finish().
    vantix::toolbox::ReplacingFile& file() { return m_file; }

private:
    virtual void append(const Image& image) = 0;
    virtual void complete() = 0;

    // A base's member outlives the writer's own, which close their streams before it is removed.
    vantix::toolbox::ReplacingFile m_file;
    int m_width;
    int m_height;
    std::string m_kind;
};

// Opens the file for an animation format. Throws ExportError when the file cannot be written or the
// format holds no animation.
std::unique_ptr<FrameWriter> OpenFrameWriter(const MovieOptions& options);

} // namespace vantix::host::detail
