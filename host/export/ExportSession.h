// One export in progress: what it was set up with, the size of its images, and the file being written.
#pragma once

#include "export/BackgroundFrameWriter.h"
#include "export/ExportSetup.h"

#include <memory>
#include <string>

namespace vantix::host::detail
{

struct ExportSession
{
    ExportSettings settings;
    int width = 0;
    int height = 0;
    std::unique_ptr<BackgroundFrameWriter> writer; // abandons the file unless finished
    long frames = 0;
};

// The image size of an export of the region: the set width, the height from the region's aspect, both
// rounded to even numbers (movie encoders need them even). Throws ExportError when there is nothing to
// export.
void ExportImageSize(const ExportSettings& settings, int& width, int& height);

// Draws the export region at the session's size, supersampled when asked.
Image RenderExportImage(const ExportSettings& settings, int width, int height);

} // namespace vantix::host::detail
