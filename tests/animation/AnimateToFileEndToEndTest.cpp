// A whole animation of the demo data set written to movie files by the host's export, with every animator
// of the chain at work: the views fly between three key frames, solution time runs forward, streamtrace
// markers travel, and the scene fades in from black and out to black. The files are read back as a player
// and as the host's lossless raster metafile see them.
#include "animation/Animate.h"
#include "animation/ChainTestHelpers.h"

#include <support/Ffprobe.h>

#include <numeric>

using namespace testhelpers;

// Frame counts 12 and 12: 25 frames, faded in over frames 0 to 2 and out over frames 23 and 24.
const std::uint64_t FramesPerSegment = 12;

class AnimateToFileEndToEndTest : public AnimationTest
{
protected:
    void SetUp() override
    {
        AnimationTest::SetUp();
        vantix::host::loadDemoDataSet();
        // Settings that differ from the host's defaults, so that putting back the defaults would show.
        vantix::host::setStyle(ShowMarkersPath, true);
        vantix::host::setStyle(TimeAnchorPath, 0.5);
        vantix::host::setStyle(IntensityPath, 70.0);
        vantix::host::setStyle(BackgroundLightPath, 30.0);
        vantix::host::setExportSetupFromText("ImageWidth", "160");
        vantix::host::setExportSetupFromText("AnimationSpeed", "10");
        m_before = SceneSettings();
        // Three views round the aircraft, each turned from the one before with the host's own rotation.
        for (int i = 1; i <= 3; ++i)
        {
            m_keyFrames.emplace_back(HostView(), "Key " + std::to_string(i), FramesPerSegment, 0.0);
            VtxUtilViewRotate3D(RotateAxis_Theta, RotateOriginLocation_DefinedOrigin, 50.0, 0, 0, 0);
            VtxUtilViewRotate3D(RotateAxis_Psi, RotateOriginLocation_DefinedOrigin, -10.0, 0, 0, 0);
        }
    }

    // Animates the whole list with every animator, time running forward, to file.
    void RunAnimation() const
    {
        Animate(m_keyFrames, 0, m_keyFrames.size(), Everything(ToFile), RecordMacro);
    }

    void ExpectHostAsBefore() const
    {
        EXPECT_EQ(m_before, SceneSettings());
        EXPECT_FALSE(VtxUtilExportIsRecording());
        EXPECT_FALSE(vantix::host::statusIsShown());
    }

    std::vector<KeyFrame_s> m_keyFrames;
    std::string m_before;
};

TEST_F(AnimateToFileEndToEndTest,
       TheFramesFadeFromBlackAndBackToBlackAndAMovieHoldsThemAllWithTheHostAsBefore)
{
    const fs::path file = ExportTo("RASTERMETAFILE", "flight.rm");
    ASSERT_EQ("", testsupport::ThrownMessage<KeyFrameError>([this] { RunAnimation(); }))
        << vantix::host::lastExportError();
    ExpectHostAsBefore();
    // Time ran forward to the last of the demo's 24 time steps, and the view stays at the last key view.
    EXPECT_EQ(23.0, vantix::host::solutionTime());
    EXPECT_TRUE(HostView() == m_keyFrames.back().view);

    std::vector<double> mean; // the brightness of each frame
    for (const std::vector<std::uint8_t>& rgb : vantix::host::readRasterMetafile(file.string()).frames)
        mean.push_back(std::accumulate(rgb.begin(), rgb.end(), 0.0) / double(rgb.size()));
    ASSERT_EQ(25u, mean.size());
    // No light at the first and the last frame, not even for the frame axis, which is hidden.
    for (std::size_t frame = 0; frame < mean.size(); ++frame)
        EXPECT_EQ(frame == 0 || frame + 1 == mean.size(), mean[frame] == 0.0) << frame;
    // Half the light on the way in and out, full light between.
    EXPECT_LT(mean[1], mean[2]);
    EXPECT_LT(mean[23], mean[22]);
    EXPECT_GT(mean[12], 0.8 * mean[2]);

    // The same animation as a movie a player reads.
    if (!testsupport::HaveFfprobe())
        GTEST_SKIP() << "ffprobe is not installed";
    const fs::path movie = ExportTo("MPEG4", "flight.mp4");
    ASSERT_EQ("", testsupport::ThrownMessage<KeyFrameError>([this] { RunAnimation(); }))
        << vantix::host::lastExportError();
    const auto probed = testsupport::Probe(movie);
    EXPECT_EQ("25 160 10/1", testsupport::Probed(probed, "nb_read_frames") + " " +
                                 testsupport::Probed(probed, "width") + " " +
                                 testsupport::Probed(probed, "r_frame_rate"));
    ExpectHostAsBefore();
}
