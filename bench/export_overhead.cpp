// What exporting a movie costs beyond drawing and encoding its frames.
//
// Three measurements over the same frames of the demo data set at 1280 x 720, in one run:
//   1. drawing the frames alone (the renderer),
//   2. exporting them to MPEG-4 through the host's export (drawing + conversion + encoding + writing),
//   3. the bare encoder: the ffmpeg program encoding the same frames, saved as raw RGB, with the same codec
//      and settings (libx264, preset fast, crf 18, key frame every 250 frames, yuv420p).
// The export path's own overhead is (2) - (1) - (3), reported as a share of (2).
//
// Usage: export_overhead [frames] [work folder]   (defaults: 300, /tmp)
#include <VtxUtil.h>
#include <vantix/host/Export.h>
#include <vantix/host/Host.h>
#include <vantix/host/Render.h>
#include <vantix/host/Scene.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace
{

using Clock = std::chrono::steady_clock;

double SecondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

// Every frame turns the view a little, so that the encoder sees a moving picture.
void NextView()
{
    VtxUtilViewRotate3D(RotateAxis_Theta, RotateOriginLocation_DefinedOrigin, 0.8, 0, 0, 0);
}

} // namespace

int main(int argc, char** argv)
{
    const int frames = argc > 1 ? std::atoi(argv[1]) : 300;
    const std::filesystem::path folder = argc > 2 ? argv[2] : "/tmp";
    const std::filesystem::path raw = folder / "export_overhead_frames.rgb";
    const std::filesystem::path exported = folder / "export_overhead_export.mp4";
    const std::filesystem::path bare = folder / "export_overhead_bare.mp4";
    if (frames < 2)
    {
        std::fprintf(stderr, "usage: export_overhead [frames >= 2] [work folder]\n");
        return 2;
    }

    vantix::host::reset();
    const UniqueID_t frame = vantix::host::addFrame();
    vantix::host::setPaperSize(13.3, 7.7);
    vantix::host::setFramePlacement(frame, {0.25, 0.25, 12.8, 7.2}); // 1280 x 720 pixels
    vantix::host::loadDemoDataSet();
    const vantix::host::ViewState start = vantix::host::view();

    // 1. Drawing alone; the frames are kept as raw RGB for the bare encoder (writing them is not timed).
    double renderSeconds = 0.0;
    {
        std::ofstream out(raw, std::ios::binary);
        for (int i = 0; i < frames; ++i)
        {
            const Clock::time_point begin = Clock::now();
            const vantix::host::Image image =
                vantix::host::renderRegion(ExportRegion_CurrentFrame, 1280, 720);
            renderSeconds += SecondsSince(begin);
            out.write(reinterpret_cast<const char*>(image.rgb.data()), std::streamsize(image.rgb.size()));
            NextView();
        }
    }

    // 2. The host's export of the same frames.
    vantix::host::setView(start);
    vantix::host::setExportSetupFromText("ExportFormat", "MPEG4");
    vantix::host::setExportSetupFromText("ExportRegion", "CurrentFrame");
    vantix::host::setExportSetupFromText("ImageWidth", "1280");
    vantix::host::setExportSetupFromText("AnimationSpeed", "30");
    vantix::host::setExportSetupFromText("ExportFName", "\"" + exported.string() + "\"");
    const Clock::time_point exportBegin = Clock::now();
    bool ok = VtxUtilExportStart();
    for (int i = 1; ok && i < frames; ++i)
    {
        NextView();
        ok = VtxUtilExportNextFrame();
    }
    ok = ok && VtxUtilExportFinish();
    const double exportSeconds = SecondsSince(exportBegin);
    if (!ok)
    {
        std::fprintf(stderr, "export failed: %s\n", vantix::host::lastExportError().c_str());
        return 1;
    }

    // 3. The bare encoder on the same frames.
    const std::string command =
        "ffmpeg -y -v error -f rawvideo -pix_fmt rgb24 -s 1280x720 -r 30 -i '" + raw.string() +
        "' -c:v libx264 -preset fast -crf 18 -g 250 -pix_fmt yuv420p '" + bare.string() + "' </dev/null";
    const Clock::time_point bareBegin = Clock::now();
    const int bareResult = std::system(command.c_str());
    const double bareSeconds = SecondsSince(bareBegin);
    if (bareResult != 0)
    {
        std::fprintf(stderr, "the ffmpeg program failed: %s\n", command.c_str());
        return 1;
    }

    const double overhead = exportSeconds - renderSeconds - bareSeconds;
    std::printf("frames                      %d at 1280 x 720\n", frames);
    std::printf("drawing alone               %7.2f s  %7.1f frames/s\n", renderSeconds,
                frames / renderSeconds);
    std::printf("export to MPEG-4            %7.2f s  %7.1f frames/s\n", exportSeconds,
                frames / exportSeconds);
    std::printf("bare encoder (ffmpeg)       %7.2f s  %7.1f frames/s\n", bareSeconds, frames / bareSeconds);
    std::printf("export / (drawing + bare)   %7.3f\n", exportSeconds / (renderSeconds + bareSeconds));
    std::printf("export path's own overhead  %7.2f s  %6.1f %% of the export\n", overhead,
                100.0 * overhead / exportSeconds);

    std::filesystem::remove(raw);
    std::filesystem::remove(exported);
    std::filesystem::remove(bare);
    return 0;
}
