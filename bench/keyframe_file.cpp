// Saving and reading key frame files of many key frames: the time of each, the file size, and the time per
// key frame across list sizes, which stays about the same when both directions take time in proportion to
// the size of the file.
//
// Reading includes replacing the list of the model, as opening a file does. Each size is measured three
// times (once from a million key frames on) and the fastest time is shown.
//
// Usage: keyframe_file [key frame counts...] [--folder FOLDER]   (defaults: 10000 100000 1000000, the
// temporary folder)
#include "core/KeyFrame.h"
#include "core/Settings.h"
#include "core/View.h"
#include "document/KeyFrameFile.h"
#include "document/ListModelKeyFrame.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

using namespace vantix::vtxutiltools;

namespace
{

using Clock = std::chrono::steady_clock;

double SecondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

// Views as a user captures them: positions and widths of model size, angles in degrees, times that grow.
std::vector<KeyFrame_s> MakeKeyFrames(std::size_t count)
{
    std::mt19937_64 random(count);
    std::uniform_real_distribution<double> position(-500.0, 500.0);
    std::uniform_real_distribution<double> angle(-180.0, 180.0);
    std::uniform_real_distribution<double> width(0.01, 100.0);
    std::vector<KeyFrame_s> keyFrames;
    keyFrames.reserve(count);
    for (std::size_t i = 0; i < count; ++i)
    {
        const View view(position(random), position(random), position(random), angle(random), angle(random),
                        angle(random), width(random));
        keyFrames.emplace_back(view, "View " + std::to_string(i + 1), 1 + i % 50,
                               0.001 * static_cast<double>(i));
    }
    return keyFrames;
}

struct Measurement
{
    double writeSeconds;
    double readSeconds;
    std::uintmax_t fileBytes;
};

Measurement Measure(std::size_t count, const std::filesystem::path& file)
{
    Settings_s settings;
    settings.timeOptions.animateTime = true;
    ListModelKeyFrame model;
    model.setDataList(MakeKeyFrames(count));

    Measurement best{1e300, 1e300, 0};
    const int repetitions = count < 1000000 ? 3 : 1;
    for (int repetition = 0; repetition < repetitions; ++repetition)
    {
        const Clock::time_point writeStart = Clock::now();
        KeyFrameFile().saveFile(file.string(), settings, model);
        best.writeSeconds = std::min(best.writeSeconds, SecondsSince(writeStart));

        Settings_s readSettings;
        ListModelKeyFrame readModel;
        const Clock::time_point readStart = Clock::now();
        KeyFrameFile().readFile(file.string(), readSettings, readModel);
        best.readSeconds = std::min(best.readSeconds, SecondsSince(readStart));
        if (readModel.size() != count)
        {
            std::fprintf(stderr, "read %lu key frames of %zu\n", readModel.size(), count);
            std::exit(1);
        }
    }
    best.fileBytes = std::filesystem::file_size(file);
    std::filesystem::remove(file);
    return best;
}

} // namespace

int main(int argc, char** argv)
{
    std::vector<std::size_t> counts;
    std::filesystem::path folder = std::filesystem::temp_directory_path();
    for (int i = 1; i < argc; ++i)
    {
        const std::string argument = argv[i];
        if (argument == "--folder" && i + 1 < argc)
            folder = argv[++i];
        else if (const long count = std::atol(argv[i]); count > 0)
            counts.push_back(static_cast<std::size_t>(count));
        else
        {
            std::fprintf(stderr, "usage: keyframe_file [key frame counts...] [--folder FOLDER]\n");
            return 2;
        }
    }
    if (counts.empty())
        counts = {10000, 100000, 1000000};

    const std::filesystem::path file = folder / "keyframe_file_bench.keyframe";
    std::printf("%12s %12s %10s %14s %10s %14s\n", "key frames", "file size", "write", "write/frame", "read",
                "read/frame");
    for (const std::size_t count : counts)
    {
        const Measurement m = Measure(count, file);
        std::printf("%12zu %9.1f MB %8.3f s %11.3f us %8.3f s %11.3f us\n", count, m.fileBytes / 1e6,
                    m.writeSeconds, 1e6 * m.writeSeconds / static_cast<double>(count), m.readSeconds,
                    1e6 * m.readSeconds / static_cast<double>(count));
    }
    return 0;
}
