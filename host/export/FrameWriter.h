// Writes the frames of one export into its file. A writer that is destroyed before finish() abandons the
// export and removes the file, so that a cancelled or failed export leaves nothing behind.
#pragma once

#include "core/Image.h"

#include <VtxUtil.h>

#include <cstdio>
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

struct FileCloser
{
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using FileOwner = std::unique_ptr<std::FILE, FileCloser>;

// The file an export writes, removed again unless it was completed. Only a file that the export made is
// removed: one it could not make is not its to touch.
class UnfinishedFile
{
public:
    explicit UnfinishedFile(std::string path) : m_path(std::move(path)) {}
    UnfinishedFile(const UnfinishedFile&) = delete;
    UnfinishedFile& operator=(const UnfinishedFile&) = delete;
    ~UnfinishedFile()
    {
        if (m_made && !m_finished)
            std::remove(m_path.c_str());
    }

    const std::string& path() const { return m_path; }
    // The file exists now; from here on it goes unless it is finished.
    void made() { m_made = true; }
    void finished() { m_finished = true; }

private:
    std::string m_path;
    bool m_made = false;
    bool m_finished = false;
};

// Writes the frames of one export into its file. The file goes again unless the writer finishes it, so
// that a cancelled or failed export leaves nothing behind.
class FrameWriter
{
public:
    virtual ~FrameWriter() = default;
    // Appends one image of the writer's size. Throws ExportError.
    void write(const Image& image);
    // Completes the file, which stays from then on. Throws ExportError (the file is then removed).
    void finish()
    {
        complete();
        m_file.finished();
    }

protected:
    // kind names the file in messages: "movie", "raster metafile".
    FrameWriter(const MovieOptions& options, std::string kind);
    const std::string& path() const { return m_file.path(); }
    // The file exists now: from here on it goes unless the writer finishes.
    void fileMade() { m_file.made(); }

private:
    virtual void append(const Image& image) = 0;
    virtual void complete() = 0;

    // A base's member outlives the writer's own, which close the file before it may be removed.
    UnfinishedFile m_file;
    int m_width;
    int m_height;
    std::string m_kind;
};

// Opens the file for an animation format. Throws ExportError when the file cannot be written or the
// format holds no animation.
std::unique_ptr<FrameWriter> OpenFrameWriter(const MovieOptions& options);

} // namespace vantix::host::detail
