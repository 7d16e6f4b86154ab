// One export in progress: what it was set up with, the size of its images, and the file being written.
#pragma once

#include "export/BackgroundFrameWriter.h"
#include "export/ExportSetup.h"
#include "render/Render.h"

#include <memory>
#include <optional>
#include <string>

namespace vantix::host::detail
{

struct ExportSession
{
    ExportSession() = default;
    // Lets go of a frame drawn and not yet written.
    ~ExportSession();
    ExportSession(const ExportSession&) = delete;
    ExportSession& operator=(const ExportSession&) = delete;

    // Draws the next frame, then writes the one before it: the frame is read back from the renderer
    // while the next one is being drawn.
    void drawFrame();
    // Writes the last frame drawn and completes the file.
    void finish();

    ExportSettings settings;
    int width = 0;
    int height = 0;
    std::unique_ptr<BackgroundFrameWriter> writer; // abandons the file unless finished
    std::optional<PendingPicture> drawn;           // the frame drawn last, not yet written
    long frames = 0;
};

// The image size of an export of the region: the set width, the height from the region's aspect, both
// rounded to even numbers (movie encoders need them even). Throws ExportError when there is nothing to
// export.
void ExportImageSize(const ExportSettings& settings, int& width, int& height);

// Draws the export region at the session's size, supersampled when asked.
Image RenderExportImage(const ExportSettings& settings, int width, int height);
PendingPicture DrawExportImage(const ExportSettings& settings, int width, int height);

} // namespace vantix::host::detail
