// Export of the page into movie and image files: every format's file as a player sees it (read back with
// ffprobe), the raster metafile's lossless frames, cancelled and failed exports, and the setup values.
#include "support/Ffprobe.h"
#include "support/HostTest.h"
#include "support/TempFolder.h"

#include <VtxUtil.h>
#include <vantix/host/Export.h>
#include <vantix/host/Host.h>
#include <vantix/host/Scene.h>
#include <vantix/toolbox/StyleValue.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <set>
#include <sstream>
#include <string>

namespace
{

using ::testing::HasSubstr;
using testsupport::HaveFfprobe;
using testsupport::HostTest;
using testsupport::Probe;
using testsupport::Probed;
namespace fs = std::filesystem;

class ExportTest : public HostTest
{
protected:
    void SetUp() override
    {
        HostTest::SetUp();
        vantix::host::loadDemoDataSet();
        Setup("ImageWidth", "96");
        Setup("AnimationSpeed", "12");
    }

    void TearDown() override
    {
        if (VtxUtilExportIsRecording())
            VtxUtilExportCancel();
        HostTest::TearDown();
    }

    static void Setup(const std::string& name, const std::string& value)
    {
        vantix::host::setExportSetupFromText(name, value);
    }

    fs::path FileNamed(const std::string& name)
    {
        const fs::path file = m_folder.path() / name;
        Setup("ExportFName", "\"" + file.string() + "\"");
        return file;
    }

    // Starts an export and adds frames, turning the view a little before each so that frames differ.
    static bool ExportFrames(int frames)
    {
        if (!VtxUtilExportStart())
            return false;
        for (int i = 1; i < frames; ++i)
        {
            VtxUtilViewRotate3D(RotateAxis_Theta, RotateOriginLocation_DefinedOrigin, 5.0, 0, 0, 0);
            if (!VtxUtilExportNextFrame())
                return false;
        }
        return VtxUtilExportFinish() == TRUE;
    }

    testsupport::TempFolder m_folder{"vantix-export"};
};

TEST_F(ExportTest, EveryMovieFormatWritesAFileThatPlaysWithItsFramesAndRate)
{
    if (!HaveFfprobe())
        GTEST_SKIP() << "ffprobe is not installed";
    struct Case
    {
        const char* format;
        const char* extra; // a second setup value, "name=value"
        const char* file;
        const char* container;
        const char* codec;
    };
    const Case cases[] = {
        {"AVI", "AVICompression=COLORPRESERVING", "movie.avi", "avi", "mpeg4"},
        {"AVI", "AVICompression=LINEPRESERVING", "lines.avi", "avi", "mjpeg"},
        {"AVI", "AVICompression=LOSSLESSUNCOMPRESSED", "raw.avi", "avi", "rawvideo"},
        {"FLASH", "FlashImageType=JPEG", "movie.swf", "swf", "flv1"},
        {"FLASH", "FlashCompressionType=SMALLESTSIZE", "small.swf", "swf", "flv1"},
        {"FLV", "", "movie.flv", "flv", "flv1"},
        {"MPEG4", "", "movie.mp4", "mov,mp4,m4a,3gp,3g2,mj2", "h264"},
        {"WMV", "", "movie.wmv", "asf", "wmv2"},
    };
    for (const Case& c : cases)
    {
        Setup("ExportFormat", c.format);
        const std::string extra = c.extra;
        if (!extra.empty())
            Setup(extra.substr(0, extra.find('=')), extra.substr(extra.find('=') + 1));
        const fs::path file = FileNamed(c.file);
        ASSERT_TRUE(ExportFrames(7)) << c.file << ": " << vantix::host::lastExportError();
        EXPECT_FALSE(VtxUtilExportIsRecording());

        const auto probed = Probe(file);
        EXPECT_EQ(c.container, Probed(probed, "format_name")) << c.file;
        EXPECT_EQ(c.codec, Probed(probed, "codec_name")) << c.file;
        EXPECT_EQ("7", Probed(probed, "nb_read_frames")) << c.file;
        EXPECT_EQ("12/1", Probed(probed, "r_frame_rate")) << c.file;
        // 96 wide; the frame's 10.5 x 8 inches give 73.1, rounded to the even 74.
        EXPECT_EQ("96", Probed(probed, "width")) << c.file;
        EXPECT_EQ("74", Probed(probed, "height")) << c.file;
    }
}

TEST_F(ExportTest, TheRasterMetafileKeepsEveryFrameExactly)
{
    Setup("ExportFormat", "RasterMetafile");
    Setup("ImageWidth", "63"); // odd widths are rounded to the next even number
    Setup("AnimationSpeed", "2.5");
    const fs::path file = FileNamed("movie.rm");
    const vantix::host::ViewState start = vantix::host::view();
    ASSERT_TRUE(ExportFrames(4)) << vantix::host::lastExportError();

    const auto movie = vantix::host::readRasterMetafile(file.string());
    EXPECT_EQ(64, movie.width);
    EXPECT_EQ(48, movie.height);
    EXPECT_EQ(5u, movie.rateNumerator);
    EXPECT_EQ(2u, movie.rateDenominator);
    ASSERT_EQ(4u, movie.frames.size());
    EXPECT_NE(movie.frames[0], movie.frames[1]); // the view turned between them

    // The same pictures through the uncompressed AVI, decoded by FFmpeg, are the same bytes.
    if (!HaveFfprobe())
        return;
    vantix::host::setView(start);
    Setup("ExportFormat", "AVI");
    Setup("AVICompression", "LosslessUncompressed");
    const fs::path avi = FileNamed("raw.avi");
    ASSERT_TRUE(ExportFrames(4));
    const fs::path decoded = m_folder.path() / "decoded.rgb";
    const std::string command = "ffmpeg -v error -i '" + avi.string() +
                                "' -fps_mode passthrough -f rawvideo -pix_fmt rgb24 '" + decoded.string() +
                                "' </dev/null";
    ASSERT_EQ(0, std::system(command.c_str()));
    std::ifstream input(decoded, std::ios::binary);
    const std::vector<std::uint8_t> bytes((std::istreambuf_iterator<char>(input)),
                                          std::istreambuf_iterator<char>());
    ASSERT_EQ(4u * 64 * 48 * 3, bytes.size());
    for (std::size_t frame = 0; frame < 4; ++frame)
        EXPECT_TRUE(std::equal(movie.frames[frame].begin(), movie.frames[frame].end(),
                               bytes.begin() + std::ptrdiff_t(frame * 64 * 48 * 3)))
            << "frame " << frame;
}

TEST_F(ExportTest, CancelledAndFailedExportsLeaveNoFileBehind)
{
    const char* formats[] = {"MPEG4", "RasterMetafile", "AVI"};
    for (const char* format : formats)
    {
        Setup("ExportFormat", format);
        const fs::path file = FileNamed(std::string("cancelled.") + format);
        ASSERT_TRUE(VtxUtilExportStart()) << vantix::host::lastExportError();
        EXPECT_TRUE(VtxUtilExportIsRecording());
        EXPECT_TRUE(VtxUtilExportNextFrame());
        EXPECT_TRUE(fs::exists(file));
        VtxUtilExportCancel();
        EXPECT_FALSE(VtxUtilExportIsRecording());
        EXPECT_FALSE(fs::exists(file)) << format;

        // A host reset while an export is open abandons it too.
        ASSERT_TRUE(VtxUtilExportStart());
        vantix::host::reset();
        EXPECT_FALSE(fs::exists(file)) << format;
        m_frame = vantix::host::addFrame();
        vantix::host::loadDemoDataSet();
        Setup("ImageWidth", "96");
    }

    // A file that cannot be opened.
    Setup("ExportFormat", "MPEG4");
    Setup("ExportFName", "\"" + (m_folder.path() / "no such folder" / "movie.mp4").string() + "\"");
    EXPECT_FALSE(VtxUtilExportStart());
    EXPECT_FALSE(VtxUtilExportIsRecording());
    EXPECT_THAT(vantix::host::lastExportError(), HasSubstr("no such folder"));
    Setup("ExportFormat", "RasterMetafile");
    EXPECT_FALSE(VtxUtilExportStart());
    EXPECT_THAT(vantix::host::lastExportError(), HasSubstr("no such folder"));
}

TEST_F(ExportTest, ExportsRefuseWhatTheyCannotDo)
{
    FileNamed("movie.mp4");
    EXPECT_FALSE(VtxUtilExportNextFrame());
    EXPECT_FALSE(VtxUtilExportFinish());
    EXPECT_THAT(vantix::host::lastExportError(), HasSubstr("no export is in progress"));

    Setup("ExportFormat", "PNG");
    EXPECT_FALSE(VtxUtilExportStart());
    EXPECT_THAT(vantix::host::lastExportError(), HasSubstr("does not hold an animation"));

    Setup("ExportFormat", "MPEG4");
    ASSERT_TRUE(VtxUtilExportStart());
    EXPECT_FALSE(VtxUtilExportStart());
    EXPECT_THAT(vantix::host::lastExportError(), HasSubstr("already in progress"));
    EXPECT_TRUE(VtxUtilExportIsRecording());
    EXPECT_TRUE(VtxUtilExportFinish());
}

TEST_F(ExportTest, SetupValuesAreCheckedWhicheverWayTheyArrive)
{
    // Through the SDK: numbers in the double, the rest in the integer or as a text pointer.
    EXPECT_TRUE(VtxUtilExportSetup("ExportFormat", nullptr, 0.0, ExportFormat_WMV));
    EXPECT_TRUE(VtxUtilExportSetup("AnimationSpeed", nullptr, 24.0, 0));
    EXPECT_TRUE(VtxUtilExportSetup("UseSuperSampleAntiAliasing", nullptr, 0.0, 1));
    const char* name = "/tmp/some movie.wmv";
    EXPECT_TRUE(VtxUtilExportSetup("ExportFName", nullptr, 0.0, reinterpret_cast<ArbParam_t>(name)));

    vantix::toolbox::StyleValue setup("ExportSetup");
    ExportFormat_e format = ExportFormat_PNG;
    double speed = 0.0;
    bool supersample = false;
    std::string file;
    setup.getValue(&format, -1, -1, setup.initMacroIDsfromStyleValueNames("ExportFormat"));
    setup.getValue(&speed, -1, -1, setup.initMacroIDsfromStyleValueNames("AnimationSpeed"));
    setup.getValue(&supersample, -1, -1, setup.initMacroIDsfromStyleValueNames("UseSuperSampleAntiAliasing"));
    setup.getValue(&file, -1, -1, setup.initMacroIDsfromStyleValueNames("ExportFName"));
    EXPECT_EQ(ExportFormat_WMV, format);
    EXPECT_EQ(24.0, speed);
    EXPECT_TRUE(supersample);
    EXPECT_EQ(name, file);

    struct Refused
    {
        const char* name;
        double number;
        ArbParam_t any;
    };
    const Refused refused[] = {
        {"ExportFormat", 0.0, 99},          {"ExportRegion", 0.0, 3},   {"ImageWidth", 0.0, 1},
        {"ImageWidth", 0.0, 40000},         {"AnimationSpeed", 0.0, 0}, {"SuperSampleFactor", 0.0, 0},
        {"FlashCompressionType", 0.0, 255}, {"NoSuchSetting", 1.0, 1},  {"ExportFName", 0.0, 0},
    };
    for (const Refused& r : refused)
        EXPECT_FALSE(VtxUtilExportSetup(r.name, nullptr, r.number, r.any)) << r.name;
    setup.getValue(&format, -1, -1, setup.initMacroIDsfromStyleValueNames("ExportFormat"));
    EXPECT_EQ(ExportFormat_WMV, format);

    // From macro texts: keywords and names in any case, the file name in quotation marks.
    vantix::host::setExportSetupFromText("exportformat", "mpeg4");
    vantix::host::setExportSetupFromText("ExportRegion", "WorkArea");
    vantix::host::setExportSetupFromText("FlashImageType", "256COLOR");
    vantix::host::setExportSetupFromText("UseSuperSampleAntiAliasing", "false");
    vantix::host::setExportSetupFromText("AnimationSpeed", " 0.001 ");
    vantix::host::setExportSetupFromText("ExportFName", "\"a \\ b.mp4\"");
    setup.getValue(&format, -1, -1, setup.initMacroIDsfromStyleValueNames("ExportFormat"));
    setup.getValue(&file, -1, -1, setup.initMacroIDsfromStyleValueNames("ExportFName"));
    setup.getValue(&speed, -1, -1, setup.initMacroIDsfromStyleValueNames("AnimationSpeed"));
    EXPECT_EQ(ExportFormat_MPEG4, format);
    EXPECT_EQ("a \\ b.mp4", file);
    EXPECT_EQ(0.001, speed);

    struct RefusedText
    {
        const char* name;
        const char* value;
        const char* why;
    };
    const RefusedText texts[] = {
        {"ExportFormat", "MPEG5", "'MPEG5' is not a keyword for ExportFormat"},
        {"ImageWidth", "12.5", "'12.5' is not a whole number for ImageWidth"},
        {"ImageWidth", "1", "ImageWidth must lie between 2 and 32766"},
        {"AnimationSpeed", "fast", "'fast' is not a number for AnimationSpeed"},
        {"AnimationSpeed", "-3", "AnimationSpeed must be greater than 0"},
        {"UseSuperSampleAntiAliasing", "yes", "'yes' is not true or false for UseSuperSampleAntiAliasing"},
        {"ExportFName", "movie.mp4", "'movie.mp4' is not a quoted file name for ExportFName"},
        {"Resolution", "300", "unknown export setting Resolution"},
    };
    for (const RefusedText& t : texts)
    {
        try
        {
            vantix::host::setExportSetupFromText(t.name, t.value);
            ADD_FAILURE() << t.name << " = " << t.value << " was taken";
        }
        catch (const std::invalid_argument& error)
        {
            EXPECT_EQ(t.why, std::string(error.what()));
        }
    }
}

TEST_F(ExportTest, SupersamplingSmoothsTheEdges)
{
    Setup("ExportFormat", "RasterMetafile");
    Setup("ImageWidth", "160");
    const auto distinctColours = [](const std::vector<std::uint8_t>& rgb)
    {
        std::set<std::uint32_t> colours;
        for (std::size_t i = 0; i + 2 < rgb.size(); i += 3)
            colours.insert(std::uint32_t(rgb[i]) << 16 | std::uint32_t(rgb[i + 1]) << 8 | rgb[i + 2]);
        return colours.size();
    };

    const fs::path plain = FileNamed("plain.rm");
    ASSERT_TRUE(ExportFrames(1));
    Setup("UseSuperSampleAntiAliasing", "true");
    Setup("SuperSampleFactor", "3");
    const fs::path smooth = FileNamed("smooth.rm");
    ASSERT_TRUE(ExportFrames(1));

    const auto plainFrame = vantix::host::readRasterMetafile(plain.string()).frames.at(0);
    const auto smoothFrame = vantix::host::readRasterMetafile(smooth.string()).frames.at(0);
    ASSERT_EQ(plainFrame.size(), smoothFrame.size());
    EXPECT_NE(plainFrame, smoothFrame);
    // Filtering down mixes the colours along every edge.
    EXPECT_GT(distinctColours(smoothFrame), distinctColours(plainFrame));
}

TEST_F(ExportTest, StillImagesAreWrittenInTheirOwnFormat)
{
    if (!HaveFfprobe())
        GTEST_SKIP() << "ffprobe is not installed";
    struct Case
    {
        const char* format;
        const char* file;
        const char* codec;
    };
    const Case cases[] = {{"PNG", "page.png", "png"},
                          {"BMP", "page.bmp", "bmp"},
                          {"TIFF", "page.tif", "tiff"},
                          {"JPEG", "page.jpg", "mjpeg"}};
    for (const Case& c : cases)
    {
        Setup("ExportFormat", c.format);
        const fs::path file = FileNamed(c.file);
        vantix::host::exportStillImage();
        const auto probed = Probe(file);
        EXPECT_EQ(c.codec, Probed(probed, "codec_name")) << c.file;
        EXPECT_EQ("96", Probed(probed, "width")) << c.file;
    }
    Setup("ExportFormat", "AVI");
    EXPECT_THROW(vantix::host::exportStillImage(), std::runtime_error);
}

} // namespace
