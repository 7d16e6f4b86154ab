// vantix keyframes and vantix movie as a user runs them: a starter key frame file around a mesh of the
// test's own, the movie of it in every format, the macro the movie command prints, and bad usage.
#include "support/Ffprobe.h"
#include "support/TempFolder.h"
#include "support/VantixProgram.h"

#include <vantix/host/Export.h>

#include <gmock/gmock.h>

#include <cmath>
#include <filesystem>
#include <set>
#include <sstream>

namespace
{

namespace fs = std::filesystem;
using testsupport::Outcome;
using testsupport::ReadFile;
using Frames = std::vector<std::vector<unsigned char>>;

// A lopsided tetrahedron, so that every side of it looks different: its box is (0, 0, 0) to (2, 1, 3).
constexpr const char* TetrahedronStl =
    "solid t\n"
    "facet normal 0 0 -1\nouter loop\nvertex 0 0 0\nvertex 0 1 0\nvertex 2 0 0\n"
    "endloop\nendfacet\n"
    "facet normal 0 -1 0\nouter loop\nvertex 0 0 0\nvertex 2 0 0\nvertex 0 0 3\n"
    "endloop\nendfacet\n"
    "facet normal -1 0 0\nouter loop\nvertex 0 0 0\nvertex 0 0 3\nvertex 0 1 0\n"
    "endloop\nendfacet\n"
    "facet normal 1 1 1\nouter loop\nvertex 2 0 0\nvertex 0 1 0\nvertex 0 0 3\n"
    "endloop\nendfacet\n"
    "endsolid t\n";

// The values of every line of a key frame file that begins with the key, in file order.
std::vector<std::vector<double>> Entries(const std::string& keyFrameFile, const std::string& key)
{
    std::vector<std::vector<double>> entries;
    std::istringstream lines(keyFrameFile);
    for (std::string line; std::getline(lines, line);)
    {
        std::istringstream words(line);
        std::string word;
        if (!(words >> word) || word != key)
            continue;
        entries.emplace_back();
        for (double value; words >> value;)
            entries.back().push_back(value);
    }
    return entries;
}

// The mean difference of two pictures of the same size, per colour byte.
double MeanDifference(const std::vector<unsigned char>& a, const std::vector<unsigned char>& b)
{
    double sum = 0.0;
    for (std::size_t i = 0; i < a.size() && i < b.size(); ++i)
        sum += std::abs(int(a[i]) - int(b[i]));
    return a.empty() ? 0.0 : sum / a.size();
}

class MovieCommandTest : public ::testing::Test
{
protected:
    void SetUp() override { testsupport::WriteFile(Path("t.stl"), TetrahedronStl); }

    std::string Path(const std::string& name) const { return (m_folder.path() / name).string(); }
    Outcome Run(const std::vector<std::string>& arguments) const
    {
        return testsupport::RunVantix(m_folder.path(), arguments);
    }

    // The frames of a movie: the raster metafile as written, the others as a player decodes them.
    Frames MovieFrames(const std::string& movie) const
    {
        if (fs::path(movie).extension() == ".rm")
        {
            auto frames = vantix::host::readRasterMetafile(movie).frames;
            return Frames(frames.begin(), frames.end());
        }
        const auto probed = testsupport::Probe(movie);
        return testsupport::DecodedFrames(movie, std::atoi(testsupport::Probed(probed, "width").c_str()),
                                          std::atoi(testsupport::Probed(probed, "height").c_str()));
    }

    std::set<std::string> FilesInFolder() const
    {
        std::set<std::string> names;
        for (const auto& entry : fs::directory_iterator(m_folder.path()))
            names.insert(entry.path().filename().string());
        return names;
    }

    testsupport::TempFolder m_folder;
};

TEST_F(MovieCommandTest, AStarterKeyFrameFileMakesALoopingMovieInEveryFormat)
{
    if (!testsupport::HaveFfprobe())
        GTEST_SKIP() << "ffprobe is not installed";
    const Outcome starter =
        Run({"keyframes", Path("t.stl"), "-o", Path("loop.keyframe"), "--views", "3", "--frames", "2"});
    ASSERT_EQ(std::make_tuple(0, std::string(), std::string()),
              std::make_tuple(starter.exitStatus, starter.err, starter.out));
    // One frame for the last key view, and the frames from each key view to the next.
    const auto counts = Entries(ReadFile(Path("loop.keyframe")), "FrameCount");
    ASSERT_EQ(4u, counts.size());
    std::size_t expectedFrames = 1;
    for (std::size_t k = 0; k + 1 < counts.size(); ++k)
        expectedFrames += static_cast<std::size_t>(counts[k].at(0));

    for (const std::string extension : {"mp4", "avi", "flv", "swf", "wmv", "rm"})
    {
        const std::string movie = Path("loop." + extension);
        const Outcome made =
            Run({"movie", Path("t.stl"), Path("loop.keyframe"), "-o", movie, "--width", "64"});
        ASSERT_EQ(0, made.exitStatus) << made.err;
        const Frames frames = MovieFrames(movie);
        ASSERT_EQ(expectedFrames, frames.size()) << extension;
        // The loop: the last frame shows the first view again (exactly in the lossless raster metafile, to
        // within the coding's noise in the others), and every frame in between shows another.
        const double noise = extension == "rm" ? 0.0 : 4.0;
        EXPECT_LE(MeanDifference(frames.front(), frames.back()), noise) << extension;
        for (std::size_t i = 1; i + 1 < frames.size(); ++i)
            EXPECT_GT(MeanDifference(frames.front(), frames[i]), 10.0) << extension << " frame " << i;
    }
}

TEST_F(MovieCommandTest, KeyViewsCircleTheDataAtTheElevationAsked)
{
    for (const double elevation : {45.0, -20.0})
    {
        const Outcome outcome = Run({"keyframes", Path("t.stl"), "-o", Path("a.keyframe"), "--views", "4",
                                     "--elevation", std::to_string(elevation)});
        ASSERT_EQ(0, outcome.exitStatus) << outcome.err;
        const auto positions = Entries(ReadFile(Path("a.keyframe")), "Position");
        ASSERT_EQ(5u, positions.size());
        EXPECT_EQ(positions.front(), positions.back()) << "the last key view is the first";
        // Seen from the centre of the box, each viewer stands at the elevation, a quarter turn on from the
        // last.
        const double centre[3] = {1.0, 0.5, 1.5};
        double lastAzimuth = 0.0;
        for (std::size_t k = 0; k < 4; ++k)
        {
            const double dx = positions[k][0] - centre[0], dy = positions[k][1] - centre[1],
                         dz = positions[k][2] - centre[2];
            const double degrees = 180.0 / std::acos(-1.0);
            EXPECT_NEAR(elevation, std::atan2(dz, std::hypot(dx, dy)) * degrees, 1e-9) << k;
            const double azimuth = std::atan2(dy, dx) * degrees;
            if (k > 0)
            {
                EXPECT_NEAR(90.0, std::remainder(azimuth - lastAzimuth, 360.0), 1e-9) << k;
            }
            lastAzimuth = azimuth;
        }
    }
}

TEST_F(MovieCommandTest, ThePrintedMacroReplaysIntoTheSameMovie)
{
    ASSERT_EQ(
        0, Run({"keyframes", Path("t.stl"), "-o", Path("my views.keyframe"), "--views", "3", "--frames", "2"})
               .exitStatus);
    const std::vector<std::string> options = {"movie",   Path("t.stl"), Path("my views.keyframe"),
                                              "--fps",   "12.5",        "--antialias",
                                              "2",       "--region",    "all",
                                              "--width", "48"};
    auto direct = options, printing = options;
    direct.insert(direct.end(), {"-o", Path("direct.rm")});
    printing.insert(printing.end(), {"-o", Path("replayed.rm"), "--print-macro"});
    ASSERT_EQ(0, Run(direct).exitStatus);
    const Outcome printed = Run(printing);
    EXPECT_EQ(std::make_pair(0, std::string()), std::make_pair(printed.exitStatus, printed.err));
    EXPECT_EQ("#!VTXMACRO 1\n"
              "# A key frame movie: the data set, the export set up as the key frame add-on's Export\n"
              "# Options dialog records it, and the key frame file flown through into the movie.\n"
              "$!LOADDATA FILE = \"" +
                  Path("t.stl") +
                  "\"\n"
                  "$!EXPORTSETUP ExportFormat = RASTERMETAFILE\n"
                  "$!EXPORTSETUP ExportRegion = ALLFRAMES\n"
                  "$!EXPORTSETUP ImageWidth = 48\n"
                  "$!EXPORTSETUP AnimationSpeed = 12.5\n"
                  "$!EXPORTSETUP UseSuperSampleAntiAliasing = true\n"
                  "$!EXPORTSETUP SuperSampleFactor = 2\n"
                  "$!EXPORTSETUP ExportFName = \"" +
                  Path("replayed.rm") +
                  "\"\n"
                  "$!ADDONCOMMAND ADDONID = 'Key Frame Animation' COMMAND = 'OpenSettingsFile FileName=\"" +
                  Path("my views.keyframe") +
                  "\"'\n"
                  "$!ADDONCOMMAND ADDONID = 'Key Frame Animation' COMMAND = 'Animate "
                  "AnimationDestination=ToFile'\n",
              printed.out);
    // Replayed from another folder: every name in it is absolute.
    fs::create_directory(Path("elsewhere"));
    testsupport::WriteFile(Path("elsewhere/movie.mcr"), printed.out);
    const Outcome replayed = Run({Path("elsewhere/movie.mcr")});
    ASSERT_EQ(0, replayed.exitStatus) << replayed.err;
    EXPECT_EQ(ReadFile(Path("direct.rm")), ReadFile(Path("replayed.rm")));
    EXPECT_EQ(7u, vantix::host::readRasterMetafile(Path("direct.rm")).frames.size());
}

TEST_F(MovieCommandTest, BadUsageIsToldInOneLineBeforeAnythingIsWritten)
{
    testsupport::WriteFile(Path("k.keyframe"), "#!KeyFrame 1\n%Settings\n Frob 1\n%Settings\n");
    testsupport::WriteFile(Path("broken.stl"), "solid t\nfacet normal 0 0 1\nouter loop\nvertex 0 0\n");
    const std::set<std::string> before = FilesInFolder();
    const std::string stl = Path("t.stl"), keyFrames = Path("k.keyframe"), missing = Path("missing.stl");
    const std::string movieHelp = " (see vantix movie --help)\n",
                      keyFramesHelp = " (see vantix keyframes --help)\n";
    struct Case
    {
        std::vector<std::string> arguments;
        std::string err;
    };
    // clang-format off
    const Case cases[] = {
        {{"movie", stl, keyFrames, "-o", "a.mov"}, "vantix movie: cannot tell the format from the name 'a.mov'; "
         "end it in .mp4, .avi, .flv, .swf, .wmv or .rm, or give --format mp4, avi, flv, swf, wmv or rm" + movieHelp},
        {{"movie", stl, keyFrames, "-o", "a.mp4", "--format", "mov"},
         "vantix movie: unknown format 'mov'; the formats are mp4, avi, flv, swf, wmv or rm" + movieHelp},
        {{"movie", stl, keyFrames, "-o", "a.mp4", "--width", "16385"},
         "vantix movie: --width must be a whole number from 2 to 16384, not '16385'" + movieHelp},
        {{"movie", stl, keyFrames, "-o", "a.mp4", "--fps", "0"},
         "vantix movie: --fps must be a number from 0.001 to 200, not '0'" + movieHelp},
        {{"movie", stl, keyFrames, "-o", "a.mp4", "--region", "page"},
         "vantix movie: unknown region 'page'; the regions are current, all and workarea" + movieHelp},
        {{"movie", stl, "-o", "a.mp4"},
         "vantix movie: expected two names, DATA and KEYFRAMES (the data set and the key frame file)" + movieHelp},
        {{"movie", stl, keyFrames}, "vantix movie: -o OUT, the movie file, is missing" + movieHelp},
        {{"movie", missing, keyFrames, "-o", "a.mp4"},
         "vantix movie: cannot read the data file '" + missing + "': No such file or directory\n"},
        {{"movie", "demo", m_folder.path().string(), "-o", "a.mp4"},
         "vantix movie: cannot read the key frame file '" + m_folder.path().string() + "': it is a folder\n"},
        {{"movie", stl, keyFrames, "-o", keyFrames, "--format", "rm"},
         "vantix movie: cannot write '" + keyFrames + "': it is the key frame file\n"},
        {{"movie", Path("broken.stl"), keyFrames, "-o", "a.mp4"},
         "vantix movie: cannot read mesh file '" + Path("broken.stl") + "': line 4: a number is missing\n"},
        {{"movie", stl, keyFrames, "-o", Path("a.mp4")},
         "vantix movie: cannot open the key frame file '" + keyFrames + "': Error reading key frame settings "
         "file. Unrecognized setting entry. Error occurred on line number 3.\n"},
        {{"keyframes", stl, "-o", "k2.keyframe", "--views", "2"},
         "vantix keyframes: --views must be a whole number from 3 to 360, not '2'" + keyFramesHelp},
        {{"keyframes", stl, "-o", "k2.keyframe", "--elevation", "nan"},
         "vantix keyframes: --elevation must be a number from -90 to 90, not 'nan'" + keyFramesHelp},
        {{"keyframes", stl}, "vantix keyframes: -o FILE, the key frame file to write, is missing" + keyFramesHelp},
        {{"keyframes", Path("broken.stl"), "-o", "k2.keyframe"},
         "vantix keyframes: cannot read mesh file '" + Path("broken.stl") + "': line 4: a number is missing\n"},
    };
    // clang-format on
    for (const Case& c : cases)
    {
        const Outcome outcome = Run(c.arguments);
        EXPECT_EQ(std::make_tuple(2, c.err, std::string()),
                  std::make_tuple(outcome.exitStatus, outcome.err, outcome.out))
            << ::testing::PrintToString(c.arguments);
    }
    std::set<std::string> after = FilesInFolder();
    after.erase("stdout");
    EXPECT_EQ(before, after);
}

TEST_F(MovieCommandTest, CtrlCStopsTheMovieAndLeavesTheEarlierFile)
{
    ASSERT_EQ(
        0,
        Run({"keyframes", "demo", "-o", Path("demo.keyframe"), "--views", "3", "--frames", "40"}).exitStatus);
    testsupport::WriteFile(Path("demo.mp4"), "earlier");
    const std::set<std::string> before = FilesInFolder();
    const Outcome outcome = testsupport::RunVantix(
        m_folder.path(), {"movie", "demo", Path("demo.keyframe"), "-o", Path("demo.mp4")}, false,
        "Animating.... Press [Esc] or click [Stop] to cancel. 0%\n", SIGINT);
    EXPECT_EQ(130, outcome.exitStatus);
    EXPECT_THAT(outcome.err, ::testing::EndsWith("stopped\nvantix movie: Animation canceled. (SIGINT)\n"));
    EXPECT_EQ("earlier", ReadFile(Path("demo.mp4")));
    EXPECT_EQ(before, FilesInFolder());
}

TEST_F(MovieCommandTest, EachCommandsHelpNamesItsOptions)
{
    for (const auto& [command, options] : std::vector<std::pair<std::string, std::vector<std::string>>>{
             {"movie",
              {"-o OUT", "--format", "--width", "--fps", "--antialias", "--region", "--print-macro"}},
             {"keyframes", {"-o FILE", "--views", "--frames", "--elevation"}}})
    {
        const Outcome outcome = Run({command, "--help"});
        EXPECT_EQ(std::make_pair(0, std::string()), std::make_pair(outcome.exitStatus, outcome.err));
        EXPECT_THAT(outcome.out, ::testing::StartsWith("Usage: vantix " + command));
        for (const std::string& option : options)
            EXPECT_THAT(outcome.out, ::testing::HasSubstr(option)) << command;
    }
}

} // namespace
