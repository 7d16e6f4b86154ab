// The export animator: the first frame starts the host's export, in an animation format only; an export it
// cannot start is reported with the user's message, one that is open already is left to whoever opened it,
// and a cancel abandons the export and leaves no file. The frames that follow, and the finished file, are
// checked by the tests of the chain and of a whole animation to file.
#include "animation/AnimatorToFile.h"
#include "animation/ChainTestHelpers.h"

using namespace testhelpers;

const std::string AnotherExportMessage =
    "Unable to start animation export. Another export is already in progress.";
const std::string FormatMessage =
    "The export file format must be set to an animation format \nbefore animating to file.";
const std::string CannotStartMessage = "Unable to start animation export.";

using AnimatorToFileTest = AnimationTest;

TEST_F(AnimatorToFileTest, OnlyTheAnimationFormatsAreExportedAndACancelLeavesNoFile)
{
    const std::string stillImageFormats = "TIFF BMP PNG JPEG";
    for (const char* format :
         {"RASTERMETAFILE", "AVI", "FLASH", "FLV", "MPEG4", "WMV", "TIFF", "BMP", "PNG", "JPEG"})
    {
        const bool animation = stillImageFormats.find(format) == std::string::npos;
        const fs::path file = ExportTo(format, std::string("movie.") + format);
        const long startsBefore = Calls("VtxUtilExportStart"), cancelsBefore = Calls("VtxUtilExportCancel");
        {
            AnimatorToFile animator(KeyFramesOver(3));
            EXPECT_THROW_MSG(animator.drawFrame(0), KeyFrameError, animation ? "" : FormatMessage) << format;
            EXPECT_EQ(animation, bool(VtxUtilExportIsRecording())) << format;
            animator.cancelAnimation();
        }
        // A cancel abandons only an export that was started; an animator that drew nothing starts nothing.
        EXPECT_EQ(animation ? 1 : 0, Calls("VtxUtilExportStart") - startsBefore) << format;
        EXPECT_EQ(animation ? 1 : 0, Calls("VtxUtilExportCancel") - cancelsBefore) << format;
        EXPECT_FALSE(fs::exists(file)) << format;
    }
    EXPECT_EQ(0, Calls("VtxUtilExportFinish"));
}

TEST_F(AnimatorToFileTest, AnExportAlreadyOpenIsRefusedAndLeftToWhoeverStartedIt)
{
    const fs::path othersFile = ExportTo("RASTERMETAFILE", "others.rm");
    ASSERT_TRUE(VtxUtilExportStart());
    {
        AnimatorToFile animator(KeyFramesOver(3));
        EXPECT_THROW_MSG(animator.drawFrame(0), KeyFrameError, AnotherExportMessage);
    }
    EXPECT_EQ(1, Calls("VtxUtilExportStart"));
    EXPECT_EQ(0, Calls("VtxUtilExportCancel") + Calls("VtxUtilExportFinish"));
    ASSERT_TRUE(VtxUtilExportFinish());
    EXPECT_EQ(1u, vantix::host::readRasterMetafile(othersFile.string()).frames.size());

    // The user's cancel, though, abandons whatever export is open.
    const fs::path cancelledFile = ExportTo("RASTERMETAFILE", "cancelled.rm");
    ASSERT_TRUE(VtxUtilExportStart());
    AnimatorToFile(KeyFramesOver(3)).cancelAnimation();
    EXPECT_EQ(1, Calls("VtxUtilExportCancel"));
    EXPECT_FALSE(VtxUtilExportIsRecording());
    EXPECT_FALSE(fs::exists(cancelledFile));
}

TEST_F(AnimatorToFileTest, AnExportTheHostCannotStartIsReported)
{
    ExportTo("RASTERMETAFILE", "no such folder/movie.rm");
    {
        AnimatorToFile animator(KeyFramesOver(3));
        EXPECT_THROW_MSG(animator.drawFrame(0), KeyFrameError, CannotStartMessage);
        // Nothing was started, so the next frame tries again rather than extending an export.
        EXPECT_THROW_MSG(animator.drawFrame(1), KeyFrameError, CannotStartMessage);
        EXPECT_EQ(2, Calls("VtxUtilExportStart"));
        EXPECT_EQ(0, Calls("VtxUtilExportNextFrame"));
    }
    EXPECT_EQ(0, Calls("VtxUtilExportFinish"));
    EXPECT_FALSE(vantix::host::lastExportError().empty());
}
