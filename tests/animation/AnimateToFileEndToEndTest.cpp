// A whole animation of the demo data set written to movie files by the host's export, with every animator
// of the chain at work: the views fly between three key frames, solution time runs forward, streamtrace
// markers travel, and the scene fades in from black and out to black. The files are read back as a player
// and as the host's lossless raster metafile see them.
#include "animation/Animate.h"
#include "animation/ChainTestHelpers.h"
#include "core/KeyFrame.h"
#include "core/KeyFrameError.h"
#include "core/Settings.h"

#include <support/AddOnTest.h>
#include <support/Ffprobe.h>
#include <support/TempFolder.h>

#include <VtxUtil.h>
#include <vantix/host/Export.h>
#include <vantix/host/Scene.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <numeric>
#include <string>
#include <vector>

using namespace vantix::vtxutiltools;
using testhelpers::BackgroundLightPath;
using testhelpers::FrameAxisShownPath;
using testhelpers::IntensityPath;
using testhelpers::ShowMarkersPath;
using testhelpers::StyleNumber;
using testhelpers::StyleSwitch;
using testhelpers::TimeAnchorPath;
using testhelpers::UseDisplayListsPath;
namespace fs = std::filesystem;

namespace
{

// Settings of the host before the animation that differ from its defaults, so that putting back the
// defaults instead of these would show.
const double Intensity = 70.0;
const double BackgroundLight = 30.0;
const double TimeAnchor = 0.5;

// Frame counts 12 and 12: 25 frames, faded in over frames 0 to 2 and out over frames 23 and 24.
const std::uint64_t FramesPerSegment = 12;
// The percent checks of the view computation, one per computed view, before the first frame is drawn.
const int ChecksBeforeTheFirstFrame = 2 * int(FramesPerSegment - 1);

class AnimateToFileEndToEndTest : public testsupport::AddOnTest
{
protected:
    void SetUp() override
    {
        AddOnTest::SetUp();
        vantix::host::loadDemoDataSet();
        vantix::host::setStyle(ShowMarkersPath, true);
        vantix::host::setStyle(TimeAnchorPath, TimeAnchor);
        vantix::host::setStyle(IntensityPath, Intensity);
        vantix::host::setStyle(BackgroundLightPath, BackgroundLight);
        vantix::host::setExportSetupFromText("ImageWidth", "160");
        vantix::host::setExportSetupFromText("AnimationSpeed", "10");

        // Three views round the aircraft, each turned from the one before with the host's own rotation.
        for (int i = 0; i < 3; ++i)
        {
            if (i > 0)
            {
                VtxUtilViewRotate3D(RotateAxis_Theta, RotateOriginLocation_DefinedOrigin, 50.0, 0, 0, 0);
                VtxUtilViewRotate3D(RotateAxis_Psi, RotateOriginLocation_DefinedOrigin, -10.0, 0, 0, 0);
            }
            m_keyFrames.emplace_back(testhelpers::HostView(), "Key " + std::to_string(i + 1),
                                     FramesPerSegment, 0.0);
        }
        m_settings.destination = ToFile;
        m_settings.timeOptions.animateTime = true;
        m_settings.timeOptions.timeAnimationOperation = Forward;
        m_settings.animateStreamtraces = true;
        m_settings.fadeIn = true;
        m_settings.fadeOut = true;
    }

    void TearDown() override
    {
        if (VtxUtilExportIsRecording())
            VtxUtilExportCancel();
        AddOnTest::TearDown();
    }

    fs::path ExportTo(const std::string& format, const std::string& name) const
    {
        vantix::host::setExportSetupFromText("ExportFormat", format);
        const fs::path file = m_folder.path() / name;
        vantix::host::setExportSetupFromText("ExportFName", "\"" + file.string() + "\"");
        return file;
    }

    // Runs the animation of the whole list; the message it failed with, or "" when it completed.
    std::string RunAnimation() const
    {
        try
        {
            Animate(m_keyFrames, 0, m_keyFrames.size(), m_settings, RecordMacro);
        }
        catch (const KeyFrameError& error)
        {
            return error.what();
        }
        return "";
    }

    static void ExpectHostAsBefore()
    {
        EXPECT_EQ(Intensity, StyleNumber(IntensityPath));
        EXPECT_EQ(BackgroundLight, StyleNumber(BackgroundLightPath));
        EXPECT_TRUE(StyleSwitch(FrameAxisShownPath));
        EXPECT_EQ(TimeAnchor, StyleNumber(TimeAnchorPath));
        EXPECT_TRUE(StyleSwitch(UseDisplayListsPath));
        EXPECT_FALSE(VtxUtilExportIsRecording());
        EXPECT_FALSE(vantix::host::statusIsShown());
    }

    static double MeanBrightness(const std::vector<std::uint8_t>& rgb)
    {
        return std::accumulate(rgb.begin(), rgb.end(), 0.0) / double(rgb.size());
    }

    std::vector<KeyFrame_s> m_keyFrames;
    Settings_s m_settings;
    testsupport::TempFolder m_folder{"vantix-end-to-end"};
};

} // namespace

TEST_F(AnimateToFileEndToEndTest, AMovieHoldsEveryFrameOfTheAnimationAndTheHostIsAsBefore)
{
    if (!testsupport::HaveFfprobe())
        GTEST_SKIP() << "ffprobe is not installed";
    const std::size_t totalFrames = GetTotalFrameCount(m_keyFrames);
    ASSERT_EQ(25u, totalFrames);

    const fs::path movie = ExportTo("MPEG4", "flight.mp4");
    ASSERT_EQ("", RunAnimation()) << vantix::host::lastExportError();

    const auto probed = testsupport::Probe(movie);
    EXPECT_EQ(std::to_string(totalFrames), testsupport::Probed(probed, "nb_read_frames"));
    EXPECT_EQ("160", testsupport::Probed(probed, "width"));
    EXPECT_EQ("10/1", testsupport::Probed(probed, "r_frame_rate"));
    ExpectHostAsBefore();
    // Time ran forward to the last of the demo's 24 time steps, and the view stays at the last key view.
    EXPECT_EQ(23.0, vantix::host::solutionTime());
    EXPECT_TRUE(testhelpers::HostView() == m_keyFrames.back().view);
}

TEST_F(AnimateToFileEndToEndTest, TheFramesFadeFromBlackAndBackToBlack)
{
    const fs::path file = ExportTo("RASTERMETAFILE", "flight.rm");
    ASSERT_EQ("", RunAnimation()) << vantix::host::lastExportError();
    ExpectHostAsBefore();

    const vantix::host::RasterMetafileContents contents = vantix::host::readRasterMetafile(file.string());
    ASSERT_EQ(GetTotalFrameCount(m_keyFrames), contents.frames.size());
    const auto isBlack = [](const std::vector<std::uint8_t>& rgb)
    { return std::all_of(rgb.begin(), rgb.end(), [](std::uint8_t value) { return value == 0; }); };

    // No light at the first and the last frame, not even for the frame axis, which is hidden.
    EXPECT_TRUE(isBlack(contents.frames.front()));
    EXPECT_TRUE(isBlack(contents.frames.back()));
    for (std::size_t frame = 1; frame + 1 < contents.frames.size(); ++frame)
        EXPECT_FALSE(isBlack(contents.frames[frame])) << frame;
    // Half the light on the way in and out, full light between.
    const auto mean = [&contents](std::size_t frame) { return MeanBrightness(contents.frames.at(frame)); };
    EXPECT_LT(mean(1), mean(2));
    EXPECT_LT(mean(23), mean(22));
    EXPECT_GT(mean(12), 0.8 * mean(2));
}

TEST_F(AnimateToFileEndToEndTest, AnAnimationCanceledHalfWayLeavesNoMovieAndTheHostAsBefore)
{
    const struct
    {
        const char* format;
        const char* name;
    } cases[] = {{"MPEG4", "flight.mp4"}, {"AVI", "flight.avi"}, {"RASTERMETAFILE", "flight.rm"}};
    for (const auto& c : cases)
    {
        const fs::path movie = ExportTo(c.format, c.name);
        const long nextFramesBefore = vantix::host::callCount("VtxUtilExportNextFrame");
        vantix::host::scriptCancelAtCheck(ChecksBeforeTheFirstFrame + 12);
        EXPECT_EQ("Animation canceled.", RunAnimation()) << c.format;
        // Twelve frames went into the file before it was abandoned.
        EXPECT_EQ(11, vantix::host::callCount("VtxUtilExportNextFrame") - nextFramesBefore) << c.format;
        EXPECT_FALSE(fs::exists(movie)) << c.format;
        ExpectHostAsBefore();
        EXPECT_TRUE(fs::is_empty(m_folder.path())) << c.format;
    }
    EXPECT_EQ(3, vantix::host::callCount("VtxUtilExportCancel"));
    EXPECT_EQ(0, vantix::host::callCount("VtxUtilExportFinish"));
}
