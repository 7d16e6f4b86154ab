#include "animation/AnimatorToFile.h"
#include "animation/Animate.h"
#include "animation/ChainTestHelpers.h"
#include "core/KeyFrameError.h"
#include "core/Settings.h"

#include <support/AddOnTest.h>
#include <support/TempFolder.h>

#include <VtxUtil.h>
#include <vantix/host/Export.h>

#include <filesystem>
#include <string>
#include <vector>

using namespace vantix::vtxutiltools;
using testhelpers::KeyFramesOver;
using testhelpers::UseDisplayListsPath;
namespace fs = std::filesystem;

namespace
{

const std::string AnotherExportMessage =
    "Unable to start animation export. Another export is already in progress.";
const std::string FormatMessage =
    "The export file format must be set to an animation format \nbefore animating to file.";
const std::string CannotStartMessage = "Unable to start animation export.";

class AnimatorToFileTest : public testsupport::AddOnTest
{
protected:
    void SetUp() override
    {
        AddOnTest::SetUp();
        vantix::host::setExportSetupFromText("ImageWidth", "96");
        vantix::host::setExportSetupFromText("ExportFormat", "RASTERMETAFILE");
        m_file = ExportTo("movie.rm");
    }

    void TearDown() override
    {
        if (VtxUtilExportIsRecording())
            VtxUtilExportCancel();
        AddOnTest::TearDown();
    }

    fs::path ExportTo(const std::string& name) const
    {
        const fs::path file = m_folder.path() / name;
        vantix::host::setExportSetupFromText("ExportFName", "\"" + file.string() + "\"");
        return file;
    }

    // The message drawing the frame failed with, or "" when it was drawn.
    static std::string DrawFailure(AnimatorToFile& animator, std::size_t frame)
    {
        try
        {
            animator.drawFrame(frame);
        }
        catch (const KeyFrameError& error)
        {
            return error.what();
        }
        return "";
    }

    static long Calls(const char* function) { return vantix::host::callCount(function); }

    testsupport::TempFolder m_folder{"vantix-tofile"};
    fs::path m_file;
};

} // namespace

TEST_F(AnimatorToFileTest, TheFirstFrameStartsTheExportTheOthersExtendItAndTheEndFinishesIt)
{
    {
        AnimatorToFile animator(KeyFramesOver(3));
        for (std::size_t frame = 0; frame < 3; ++frame)
            animator.drawFrame(frame);
        EXPECT_EQ(1, Calls("VtxUtilExportStart"));
        EXPECT_EQ(2, Calls("VtxUtilExportNextFrame"));
        EXPECT_EQ(0, Calls("VtxUtilExportFinish"));
        EXPECT_TRUE(VtxUtilExportIsRecording());
    }
    EXPECT_EQ(1, Calls("VtxUtilExportFinish"));
    EXPECT_FALSE(VtxUtilExportIsRecording());
    EXPECT_EQ(3u, vantix::host::readRasterMetafile(m_file.string()).frames.size());
}

TEST_F(AnimatorToFileTest, OnlyTheAnimationFormatsAreExported)
{
    const struct
    {
        const char* format;
        bool animation;
    } cases[] = {
        {"RASTERMETAFILE", true}, {"AVI", true},   {"FLASH", true}, {"FLV", true},
        {"MPEG4", true},          {"WMV", true},   {"TIFF", false}, {"BMP", false},
        {"PNG", false},           {"JPEG", false},
    };
    for (const auto& c : cases)
    {
        vantix::host::setExportSetupFromText("ExportFormat", c.format);
        const fs::path file = ExportTo(std::string("movie.") + c.format);
        const long startsBefore = Calls("VtxUtilExportStart");
        {
            AnimatorToFile animator(KeyFramesOver(3));
            EXPECT_EQ(c.animation ? "" : FormatMessage, DrawFailure(animator, 0)) << c.format;
            EXPECT_EQ(c.animation, bool(VtxUtilExportIsRecording())) << c.format;
            EXPECT_EQ(c.animation ? 1 : 0, Calls("VtxUtilExportStart") - startsBefore) << c.format;
            animator.cancelAnimation();
        }
        EXPECT_FALSE(fs::exists(file)) << c.format;
    }
    EXPECT_EQ(0, Calls("VtxUtilExportFinish"));
}

TEST_F(AnimatorToFileTest, AnExportAlreadyOpenIsRefusedAndLeftToWhoeverStartedIt)
{
    const fs::path othersFile = ExportTo("others.rm");
    ASSERT_TRUE(VtxUtilExportStart());
    {
        AnimatorToFile animator(KeyFramesOver(3));
        EXPECT_EQ(AnotherExportMessage, DrawFailure(animator, 0));
    }
    EXPECT_EQ(1, Calls("VtxUtilExportStart"));
    EXPECT_EQ(0, Calls("VtxUtilExportCancel"));
    EXPECT_EQ(0, Calls("VtxUtilExportFinish"));
    ASSERT_TRUE(VtxUtilExportIsRecording());

    ASSERT_TRUE(VtxUtilExportFinish());
    EXPECT_EQ(1u, vantix::host::readRasterMetafile(othersFile.string()).frames.size());

    // The user's cancel, though, abandons whatever export is open.
    const fs::path cancelledFile = ExportTo("cancelled.rm");
    ASSERT_TRUE(VtxUtilExportStart());
    {
        AnimatorToFile animator(KeyFramesOver(3));
        animator.cancelAnimation();
    }
    EXPECT_EQ(1, Calls("VtxUtilExportCancel"));
    EXPECT_FALSE(VtxUtilExportIsRecording());
    EXPECT_FALSE(fs::exists(cancelledFile));
}

TEST_F(AnimatorToFileTest, AnExportTheHostCannotStartIsReported)
{
    ExportTo("no such folder/movie.rm");
    {
        AnimatorToFile animator(KeyFramesOver(3));
        EXPECT_EQ(CannotStartMessage, DrawFailure(animator, 0));
        EXPECT_EQ(1, Calls("VtxUtilExportStart"));
        // Nothing was started, so the next frame tries again rather than extending an export.
        EXPECT_EQ(CannotStartMessage, DrawFailure(animator, 1));
        EXPECT_EQ(0, Calls("VtxUtilExportNextFrame"));
    }
    EXPECT_EQ(0, Calls("VtxUtilExportFinish"));
    EXPECT_FALSE(vantix::host::lastExportError().empty());
}

TEST_F(AnimatorToFileTest, ACancelAbandonsTheExportAndLeavesNoFile)
{
    {
        AnimatorToFile animator(KeyFramesOver(5));
        animator.drawFrame(0);
        animator.drawFrame(1);
        animator.cancelAnimation();
        EXPECT_EQ(1, Calls("VtxUtilExportCancel"));
        EXPECT_FALSE(VtxUtilExportIsRecording());
    }
    EXPECT_EQ(0, Calls("VtxUtilExportFinish"));
    EXPECT_FALSE(fs::exists(m_file));
}

TEST_F(AnimatorToFileTest, AnAnimatorThatDrewNothingStartsAndFinishesNothing)
{
    {
        AnimatorToFile animator(KeyFramesOver(5));
        animator.cancelAnimation();
    }
    EXPECT_EQ(0, Calls("VtxUtilExportStart"));
    EXPECT_EQ(0, Calls("VtxUtilExportFinish"));
    EXPECT_EQ(0, Calls("VtxUtilExportCancel"));
    EXPECT_FALSE(fs::exists(m_file));
}

TEST_F(AnimatorToFileTest, AnAnimationToFileReportsEachExportFailureAndPutsTheHostBack)
{
    const struct
    {
        const char* what;
        const char* format;
        const char* fileName;
        bool otherExportOpen;
        std::string message;
    } cases[] = {
        {"another export open", "RASTERMETAFILE", "movie.rm", true, AnotherExportMessage},
        {"a still image format", "PNG", "movie.png", false, FormatMessage},
        {"a file that cannot be written", "RASTERMETAFILE", "no such folder/movie.rm", false,
         CannotStartMessage},
    };
    Settings_s settings;
    settings.destination = ToFile;
    settings.fadeIn = true;
    settings.animateStreamtraces = true;
    for (const auto& c : cases)
    {
        vantix::host::setExportSetupFromText("ExportFormat", c.format);
        if (c.otherExportOpen)
        {
            ExportTo("others.rm");
            ASSERT_TRUE(VtxUtilExportStart());
        }
        const fs::path file = ExportTo(c.fileName);
        std::string message;
        try
        {
            Animate(KeyFramesOver(20), 0, 2, settings, RecordMacro);
        }
        catch (const KeyFrameError& error)
        {
            message = error.what();
        }
        EXPECT_EQ(c.message, message) << c.what;
        EXPECT_FALSE(fs::exists(file)) << c.what;
        EXPECT_EQ(c.otherExportOpen, bool(VtxUtilExportIsRecording())) << c.what;
        EXPECT_EQ(vantix::host::StyleData(true), vantix::host::style(UseDisplayListsPath)) << c.what;
        EXPECT_TRUE(testhelpers::StyleSwitch(testhelpers::FrameAxisShownPath)) << c.what;
        EXPECT_EQ(75.0, testhelpers::StyleNumber(testhelpers::IntensityPath)) << c.what;
        EXPECT_EQ(0.0, testhelpers::StyleNumber(testhelpers::TimeAnchorPath)) << c.what;
        EXPECT_FALSE(vantix::host::statusIsShown()) << c.what;
        if (VtxUtilExportIsRecording())
            VtxUtilExportCancel();
    }
}
