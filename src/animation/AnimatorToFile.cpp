#include "animation/AnimatorToFile.h"

#include "core/KeyFrameError.h"

#include <VtxUtil.h>
#include <vantix/toolbox/StyleValue.h>

namespace vantix::vtxutiltools
{

namespace
{

// The export formats that hold more than one frame.
bool IsAnimationFormat(ExportFormat_e format)
{
    switch (format)
    {
    case ExportFormat_RasterMetafile:
    case ExportFormat_AVI:
    case ExportFormat_Flash:
    case ExportFormat_FLV:
    case ExportFormat_MPEG4:
    case ExportFormat_WMV:
        return true;
    default:
        return false;
    }
}

ExportFormat_e CurrentExportFormat()
{
    // A format that cannot be read stays at a value that is no format at all, and is refused as such.
    ExportFormat_e format = static_cast<ExportFormat_e>(255);
    const vantix::toolbox::StyleValue exportSetup("ExportSetup");
    exportSetup.getValue(&format, -1, -1, exportSetup.initMacroIDsfromStyleValueNames("ExportFormat"));
    return format;
}

} // namespace

AnimatorToFile::AnimatorToFile(const std::vector<KeyFrame_s>& keyFrames)
    : AnimatorAbstract(keyFrames, nullptr)
{
}

AnimatorToFile::~AnimatorToFile()
{
    if (ownsOpenExport())
        VtxUtilExportFinish();
}

void AnimatorToFile::cancelAnimation()
{
    // A cancel abandons whatever export is open: the user asked to stop making the movie.
    if (VtxUtilExportIsRecording())
        VtxUtilExportCancel();
}

void AnimatorToFile::drawFrameAtIndex(std::size_t /*frame*/)
{
    if (!m_exportNotStarted)
    {
        VtxUtilExportNextFrame();
        return;
    }
    if (VtxUtilExportIsRecording())
        throw KeyFrameError("Unable to start animation export. Another export is already in progress.");
    if (!IsAnimationFormat(CurrentExportFormat()))
        throw KeyFrameError(
            "The export file format must be set to an animation format \nbefore animating to file.");
    // Starting the export takes the frame now shown as the first frame of the file.
    if (!VtxUtilExportStart())
        throw KeyFrameError("Unable to start animation export.");
    m_exportNotStarted = false;
}

bool AnimatorToFile::ownsOpenExport() const
{
    return !m_exportNotStarted && VtxUtilExportIsRecording();
}

} // namespace vantix::vtxutiltools
