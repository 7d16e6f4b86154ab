// Export of the page into movie and image files: every format's file as a player sees it (read back with
// ffprobe), the raster metafile's lossless frames, cancelled and failed exports, and the setup values.
#include "support/Ffprobe.h"
#include "support/HostTest.h"
#include "support/SmallDisk.h"
#include "support/TempFolder.h"
#include "support/ThrownMessage.h"

#include <vantix/host/Export.h>
#include <vantix/toolbox/StyleValue.h>

#include <cstdlib>
#include <filesystem>
#include <map>
#include <set>

namespace
{

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using ::testing::Pair;
using testsupport::HaveFfprobe;
using testsupport::Probe;
using namespace vantix::host;
using Settings = std::vector<std::pair<std::string, std::string>>; // export setup names and macro texts

// The export format, speed, supersampling and file name as add-ons read them, through the SDK's style values.
std::tuple<ExportFormat_e, double, bool, std::string> SetupValues()
{
    vantix::toolbox::StyleValue setup("ExportSetup");
    std::tuple<ExportFormat_e, double, bool, std::string> values;
    setup.getValue(&std::get<0>(values), -1, -1, setup.initMacroIDsfromStyleValueNames("ExportFormat"));
    setup.getValue(&std::get<1>(values), -1, -1, setup.initMacroIDsfromStyleValueNames("AnimationSpeed"));
    setup.getValue(&std::get<2>(values), -1, -1,
                   setup.initMacroIDsfromStyleValueNames("UseSuperSampleAntiAliasing"));
    setup.getValue(&std::get<3>(values), -1, -1, setup.initMacroIDsfromStyleValueNames("ExportFName"));
    return values;
}

class ExportTest : public testsupport::HostTest
{
protected:
    void SetUp() override
    {
        HostTest::SetUp();
        loadDemoDataSet();
        Setup({{"ImageWidth", "96"}, {"AnimationSpeed", "12"}});
    }

    // Sets export setup values from their macro texts and, when a file is named, the export file in the
    // test's folder, which it returns.
    fs::path Setup(const Settings& settings, const std::string& file = "") const
    {
        for (const auto& [name, value] : settings)
            setExportSetupFromText(name, value);
        if (!file.empty())
            setExportSetupFromText("ExportFName", "\"" + (m_folder.path() / file).string() + "\"");
        return m_folder.path() / file;
    }

    // Starts an export and adds frames, turning the view a little before each so that frames differ.
    static bool ExportFrames(int frames)
    {
        bool ok = VtxUtilExportStart();
        for (int i = 1; i < frames && ok; ++i)
            ok = VtxUtilViewRotate3D(RotateAxis_Theta, RotateOriginLocation_DefinedOrigin, 5.0, 0, 0, 0) &&
                 VtxUtilExportNextFrame();
        return ok && VtxUtilExportFinish();
    }

    long FilesInFolder() const { return std::distance(fs::directory_iterator(m_folder.path()), {}); }

    testsupport::TempFolder m_folder{"vantix-export"};
};

TEST_F(ExportTest, EveryMovieFormatWritesAFileThatPlaysWithItsFramesAndRate)
{
    if (!HaveFfprobe())
        GTEST_SKIP() << "ffprobe is not installed";
    const std::tuple<Settings, const char*, const char*, const char*> cases[] = {
        // setup, file, container, codec
        {{{"ExportFormat", "AVI"}, {"AVICompression", "COLORPRESERVING"}}, "movie.avi", "avi", "mpeg4"},
        {{{"AVICompression", "LINEPRESERVING"}}, "lines.avi", "avi", "mjpeg"},
        {{{"AVICompression", "LOSSLESSUNCOMPRESSED"}}, "raw.avi", "avi", "rawvideo"},
        {{{"ExportFormat", "FLASH"}, {"FlashImageType", "JPEG"}}, "movie.swf", "swf", "flv1"},
        {{{"FlashCompressionType", "SMALLESTSIZE"}}, "small.swf", "swf", "flv1"},
        {{{"ExportFormat", "FLV"}}, "movie.flv", "flv", "flv1"},
        {{{"ExportFormat", "MPEG4"}}, "movie.mp4", "mov,mp4,m4a,3gp,3g2,mj2", "h264"},
        {{{"ExportFormat", "WMV"}}, "movie.wmv", "asf", "wmv2"},
    };
    // 96 wide; the frame's 10.5 x 8 inches give 73.1, rounded to the even 74.
    std::map<std::string, std::string> expected = {
        {"nb_read_frames", "7"}, {"r_frame_rate", "12/1"}, {"width", "96"}, {"height", "74"}};
    for (const auto& [settings, file, container, codec] : cases)
    {
        const fs::path path = Setup(settings, file);
        ASSERT_TRUE(ExportFrames(7)) << file << ": " << lastExportError();
        EXPECT_FALSE(VtxUtilExportIsRecording());
        expected["format_name"] = container;
        expected["codec_name"] = codec;
        EXPECT_EQ(expected, Probe(path)) << file;
    }
}

TEST_F(ExportTest, EverySpeedTheDialogOffersPlaysAtThatRateInEveryFormat)
{
    if (!HaveFfprobe())
        GTEST_SKIP() << "ffprobe is not installed";
    // The rate a player sees: the frames written over the movie's duration, or for Flash, which has no
    // duration, its rate over the times each frame is shown.
    const auto playedRate = [](const fs::path& movie)
    {
        const auto lines = testsupport::FfprobeLines("-count_frames -select_streams v:0 -show_entries "
                                                     "stream=avg_frame_rate,nb_read_frames:format=duration "
                                                     "-of default=noprint_wrappers=1:nokey=1 '" +
                                                     movie.string() + "'");
        if (lines.size() != 3)
            return 0.0;
        if (lines[2] != "N/A")
            return 3.0 / std::stod(lines[2]);
        const double rate = std::stod(lines[0]) / std::stod(lines[0].substr(lines[0].find('/') + 1));
        return rate * 3.0 / std::stod(lines[1]);
    };
    for (const char* format : {"AVI", "FLASH", "FLV", "MPEG4", "WMV"})
        for (const double speed : {0.001, 0.37, 200.0})
        {
            const fs::path movie = Setup(
                {{"ExportFormat", format}, {"ImageWidth", "32"}, {"AnimationSpeed", std::to_string(speed)}},
                std::string("speed.") + format);
            ASSERT_TRUE(ExportFrames(3)) << format << " " << speed << ": " << lastExportError();
            EXPECT_NEAR(speed, playedRate(movie), speed * 0.002) << format;
        }
}

TEST_F(ExportTest, TheRasterMetafileKeepsEveryFrameExactly)
{
    // Odd widths are rounded to the next even number.
    const fs::path file = Setup(
        {{"ExportFormat", "RasterMetafile"}, {"ImageWidth", "63"}, {"AnimationSpeed", "2.5"}}, "movie.rm");
    const ViewState start = view();
    ASSERT_TRUE(ExportFrames(4)) << lastExportError();
    const auto movie = readRasterMetafile(file.string());
    EXPECT_EQ(std::make_tuple(64, 48, 5u, 2u),
              std::make_tuple(movie.width, movie.height, movie.rateNumerator, movie.rateDenominator));
    ASSERT_EQ(4u, movie.frames.size());
    EXPECT_NE(movie.frames[0], movie.frames[1]); // the view turned between them
    // A frame size beyond the end of the file is damage, not something to allocate.
    std::string damaged = testsupport::ReadFile(file);
    damaged.replace(28, 4, "\xff\xff\xff\xff");
    testsupport::WriteFile(file, damaged);
    EXPECT_THROW_MSG(readRasterMetafile(file.string()), std::runtime_error,
                     file.string() + " ends too early");

    // The same pictures through the uncompressed AVI, decoded by FFmpeg, are the same bytes.
    if (!HaveFfprobe())
        return;
    setView(start);
    const fs::path avi =
        Setup({{"ExportFormat", "AVI"}, {"AVICompression", "LosslessUncompressed"}}, "raw.avi");
    ASSERT_TRUE(ExportFrames(4));
    const fs::path decoded = m_folder.path() / "decoded.rgb";
    const std::string ffmpeg = "ffmpeg -v error -i '" + avi.string() +
                               "' -fps_mode passthrough -f rawvideo -pix_fmt rgb24 '" + decoded.string() +
                               "' </dev/null";
    ASSERT_EQ(0, std::system(ffmpeg.c_str()));
    std::string frames;
    for (const auto& frame : movie.frames)
        frames.append(frame.begin(), frame.end());
    EXPECT_TRUE(frames == testsupport::ReadFile(decoded))
        << "the decoded AVI differs from the raster metafile";
}

TEST_F(ExportTest, CancelledAndFailedExportsLeaveNoFileBehindAndWrongCallsAreRefused)
{
    for (const char* format : {"MPEG4", "RasterMetafile", "AVI"})
    {
        // An earlier file at the path stays as it was until the export completes; one abandoned leaves
        // nothing beside it.
        const fs::path file = Setup({{"ExportFormat", format}}, std::string("cancelled.") + format);
        testsupport::WriteFile(file, "earlier");
        const auto untouched = [&]
        { return testsupport::ReadFile(file) == "earlier" && FilesInFolder() == 1; };
        ASSERT_TRUE(VtxUtilExportStart()) << lastExportError();
        EXPECT_TRUE(VtxUtilExportIsRecording() && VtxUtilExportNextFrame()) << format;
        EXPECT_EQ(2, FilesInFolder()) << format;
        VtxUtilExportCancel();
        EXPECT_FALSE(VtxUtilExportIsRecording()) << format;
        EXPECT_TRUE(untouched()) << format;

        // A host reset while an export is open abandons it too.
        ASSERT_TRUE(VtxUtilExportStart());
        reset();
        EXPECT_TRUE(untouched()) << format;
        fs::remove(file);
        m_frame = addFrame();
        loadDemoDataSet();
        Setup({{"ImageWidth", "96"}});
    }

    // A file that cannot be opened.
    Setup({{"ExportFormat", "MPEG4"}}, "no such folder/movie.mp4");
    EXPECT_FALSE(VtxUtilExportStart() || VtxUtilExportIsRecording());
    EXPECT_THAT(lastExportError(), HasSubstr("no such folder"));
    Setup({{"ExportFormat", "RasterMetafile"}});
    EXPECT_FALSE(VtxUtilExportStart());
    EXPECT_THAT(lastExportError(), HasSubstr("no such folder"));

    // Calls out of order, and a format without an animation.
    Setup({}, "movie.mp4");
    EXPECT_FALSE(VtxUtilExportNextFrame() || VtxUtilExportFinish());
    EXPECT_EQ("no export is in progress", lastExportError());
    Setup({{"ExportFormat", "PNG"}});
    EXPECT_FALSE(VtxUtilExportStart());
    EXPECT_EQ("the export format does not hold an animation", lastExportError());
    Setup({{"ExportFormat", "MPEG4"}});
    ASSERT_TRUE(VtxUtilExportStart());
    EXPECT_FALSE(VtxUtilExportStart());
    EXPECT_EQ("an export is already in progress", lastExportError());
    EXPECT_TRUE(VtxUtilExportIsRecording() && VtxUtilExportFinish());
}

TEST_F(ExportTest, AFullDiskLeavesTheEarlierFileAsItWasInEveryFormat)
{
    const testsupport::SmallDisk disk;
    if (!disk.mounted())
        GTEST_SKIP() << disk.reason();
    const std::string earlier(3000, 'e');
    setExportSetupFromText("ImageWidth", "480");
    const std::set<std::string> stillImages = {"BMP", "PNG", "TIFF", "JPEG"};
    for (const char* format :
         {"RASTERMETAFILE", "AVI", "FLASH", "FLV", "MPEG4", "WMV", "BMP", "PNG", "TIFF", "JPEG"})
    {
        const fs::path file = disk.path() / (std::string("earlier.") + format);
        testsupport::WriteFile(file, earlier);
        disk.fill(16384);
        setExportSetupFromText("ExportFormat", format);
        setExportSetupFromText("ExportFName", "\"" + file.string() + "\"");
        std::string error;
        try
        {
            if (stillImages.count(format))
                exportStillImage();
            else
                EXPECT_FALSE(ExportFrames(8));
            VtxUtilExportCancel(); // a frame that fails leaves the export open
        }
        catch (const std::runtime_error& thrown)
        {
            error = thrown.what();
        }
        EXPECT_THAT(error.empty() ? lastExportError() : error, HasSubstr(": No space left on device"))
            << format;
        EXPECT_EQ(earlier, testsupport::ReadFile(file)) << format;
        EXPECT_EQ(2, std::distance(fs::directory_iterator(disk.path()), {})) << format;
        fs::remove(file);
        fs::remove(disk.path() / "filler");
    }
}

TEST_F(ExportTest, SetupValuesAreCheckedWhicheverWayTheyArrive)
{
    // Through the SDK: numbers in the double, the rest in the integer or as a text pointer.
    const char* name = "/tmp/some movie.wmv";
    const std::tuple<const char*, double, ArbParam_t, Boolean> sdk[] = {
        // name, number, anything else, taken
        {"ExportFormat", 0.0, ExportFormat_WMV, TRUE},
        {"AnimationSpeed", 24.0, 0, TRUE},
        {"UseSuperSampleAntiAliasing", 0.0, 1, TRUE},
        {"ExportFName", 0.0, reinterpret_cast<ArbParam_t>(name), TRUE},
        {"ExportFormat", 0.0, 99, FALSE},
        {"ExportRegion", 0.0, 3, FALSE},
        {"ImageWidth", 0.0, 1, FALSE},
        {"ImageWidth", 0.0, 16385, FALSE},
        {"AnimationSpeed", 0.0, 0, FALSE},
        {"SuperSampleFactor", 0.0, 0, FALSE},
        {"FlashCompressionType", 0.0, 255, FALSE},
        {"NoSuchSetting", 1.0, 1, FALSE},
        {"ExportFName", 0.0, 0, FALSE},
    };
    for (const auto& [setting, number, any, taken] : sdk)
        EXPECT_EQ(taken, VtxUtilExportSetup(setting, nullptr, number, any)) << setting;
    // The values refused changed nothing.
    EXPECT_EQ(std::make_tuple(ExportFormat_WMV, 24.0, true, std::string(name)), SetupValues());

    // From macro texts: keywords and names in any case, the file name in quotation marks.
    Setup({{"exportformat", "mpeg4"},
           {"ExportRegion", "WorkArea"},
           {"FlashImageType", "256COLOR"},
           {"UseSuperSampleAntiAliasing", "false"},
           {"AnimationSpeed", " 0.001 "},
           {"ExportFName", "\"a \\ b.mp4\""}});
    EXPECT_EQ(std::make_tuple(ExportFormat_MPEG4, 0.001, false, std::string("a \\ b.mp4")), SetupValues());
    const std::tuple<const char*, const char*, const char*> refused[] = {
        {"ExportFormat", "MPEG5", "'MPEG5' is not a keyword for ExportFormat"},
        {"ImageWidth", "12.5", "'12.5' is not a whole number for ImageWidth"},
        {"ImageWidth", "1", "ImageWidth must lie between 2 and 16384"},
        {"AnimationSpeed", "fast", "'fast' is not a number for AnimationSpeed"},
        {"AnimationSpeed", "-3", "AnimationSpeed must lie between 0.001 and 200"},
        {"AnimationSpeed", "70000", "AnimationSpeed must lie between 0.001 and 200"},
        {"AnimationSpeed", "1e-300", "AnimationSpeed must lie between 0.001 and 200"},
        {"AnimationSpeed", "nan", "AnimationSpeed must lie between 0.001 and 200"},
        {"UseSuperSampleAntiAliasing", "yes", "'yes' is not true or false for UseSuperSampleAntiAliasing"},
        {"ExportFName", "movie.mp4", "'movie.mp4' is not a quoted file name for ExportFName"},
        {"Resolution", "300", "unknown export setting Resolution"},
    };
    for (const auto& c : refused)
        EXPECT_THROW_MSG(setExportSetupFromText(std::get<0>(c), std::get<1>(c)), std::invalid_argument,
                         std::get<2>(c));
}

TEST_F(ExportTest, SupersamplingSmoothsTheEdges)
{
    const auto colours = [](const std::vector<std::uint8_t>& rgb)
    {
        std::set<std::uint32_t> colours;
        for (std::size_t i = 0; i + 2 < rgb.size(); i += 3)
            colours.insert(std::uint32_t(rgb[i]) << 16 | std::uint32_t(rgb[i + 1]) << 8 | rgb[i + 2]);
        return colours.size();
    };
    const fs::path plain = Setup({{"ExportFormat", "RasterMetafile"}, {"ImageWidth", "160"}}, "plain.rm");
    ASSERT_TRUE(ExportFrames(1));
    const fs::path smooth =
        Setup({{"UseSuperSampleAntiAliasing", "true"}, {"SuperSampleFactor", "3"}}, "smooth.rm");
    ASSERT_TRUE(ExportFrames(1));
    const auto plainFrame = readRasterMetafile(plain.string()).frames.at(0);
    const auto smoothFrame = readRasterMetafile(smooth.string()).frames.at(0);
    ASSERT_EQ(plainFrame.size(), smoothFrame.size());
    // Filtering down mixes the colours along every edge.
    EXPECT_GT(colours(smoothFrame), colours(plainFrame));
}

TEST_F(ExportTest, StillImagesAreWrittenInTheirOwnFormat)
{
    if (!HaveFfprobe())
        GTEST_SKIP() << "ffprobe is not installed";
    const std::tuple<const char*, const char*, const char*> cases[] = {{"PNG", "page.png", "png"},
                                                                       {"BMP", "page.bmp", "bmp"},
                                                                       {"TIFF", "page.tif", "tiff"},
                                                                       {"JPEG", "page.jpg", "mjpeg"}};
    for (const auto& [format, file, codec] : cases)
    {
        const fs::path path = Setup({{"ExportFormat", format}}, file);
        exportStillImage();
        EXPECT_THAT(Probe(path), ::testing::IsSupersetOf({Pair("codec_name", codec), Pair("width", "96")}))
            << file;
    }
    Setup({{"ExportFormat", "AVI"}});
    EXPECT_THROW_MSG(exportStillImage(), std::runtime_error,
                     "the export format holds an animation: start an export to write it");
}

} // namespace
