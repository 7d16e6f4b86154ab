// Movies of a big mesh, made through the vantix program as a user would make them.
//
// Makes a bumpy tube of its own (binary PLY with normals), then for each format exports 300 frames at
// 1280 x 720 with the view turning 1.2 degrees a frame (one whole turn), each run a macro replayed by a
// vantix process of its own under /usr/bin/time. Prints for each run the whole-run wall time (mesh load
// included), frames per second, CPU seconds and peak resident memory, and a "load" row: the mesh loaded
// and drawn once, which is what every run pays before its frames.
//
// Usage: big_mesh_movie [--triangles N]... [--formats mp4,avi,png] [--frames N] [--keep FOLDER]
//   defaults: 450000 and 2000000 triangles, every format, 300 frames, a temporary folder removed after.
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace
{

namespace fs = std::filesystem;

constexpr double Pi = 3.14159265358979323846;
constexpr int FrameWidth = 1280;
constexpr double DegreesPerFrame = 1.2;

struct Options
{
    std::vector<long> triangleCounts;
    std::vector<std::string> formats;
    int frames = 300;
    fs::path keep; // empty: a temporary folder, removed at the end
};

[[noreturn]] void Usage(const std::string& why)
{
    std::fprintf(stderr,
                 "big_mesh_movie: %s\nusage: big_mesh_movie [--triangles N]... [--formats mp4,avi,png] "
                 "[--frames N] [--keep FOLDER]\n",
                 why.c_str());
    std::exit(2);
}

Options ParseOptions(int argc, char** argv)
{
    Options options;
    for (int i = 1; i < argc; ++i)
    {
        const std::string option = argv[i];
        if (i + 1 >= argc)
            Usage(option + " needs a value");
        const std::string value = argv[++i];
        if (option == "--triangles")
            options.triangleCounts.push_back(std::atol(value.c_str()));
        else if (option == "--formats")
        {
            std::stringstream list(value);
            for (std::string format; std::getline(list, format, ',');)
                options.formats.push_back(format);
        }
        else if (option == "--frames")
            options.frames = std::atoi(value.c_str());
        else if (option == "--keep")
            options.keep = value;
        else
            Usage("unknown option " + option);
    }
    if (options.triangleCounts.empty())
        options.triangleCounts = {450000, 2000000};
    if (options.formats.empty())
        options.formats = {"mp4", "avi", "png"};
    for (const std::string& format : options.formats)
        if (format != "mp4" && format != "avi" && format != "png")
            Usage("unknown format " + format);
    for (const long count : options.triangleCounts)
        if (count < 1000)
            Usage("at least 1000 triangles");
    if (options.frames < 2)
        Usage("at least 2 frames");
    return options;
}

// A tube along x, 4 long and about 1 round, with bumps of several sizes so that the encoder and the
// rasteriser see detail everywhere. Rings of nodes around it, joined into quads of two triangles.
class BumpyTube
{
public:
    explicit BumpyTube(long triangles)
        : m_around(static_cast<int>(std::lround(std::sqrt(triangles / 2.0 * 2.5)))),
          m_along(static_cast<int>(std::lround(triangles / 2.0 / m_around)))
    {
    }

    long triangleCount() const { return 2L * m_around * m_along; }

    void writePly(const fs::path& path) const
    {
        std::ofstream file(path, std::ios::binary);
        const long nodes = static_cast<long>(m_around) * (m_along + 1);
        file << "ply\nformat binary_little_endian 1.0\ncomment a bumpy tube made by big_mesh_movie\n"
             << "element vertex " << nodes << "\nproperty float x\nproperty float y\nproperty float z\n"
             << "property float nx\nproperty float ny\nproperty float nz\n"
             << "element face " << triangleCount()
             << "\nproperty list uchar int vertex_indices\nend_header\n";
        for (int ring = 0; ring <= m_along; ++ring)
            for (int step = 0; step < m_around; ++step)
            {
                const double s = 4.0 * ring / m_along - 2.0, a = 2.0 * Pi * step / m_around;
                const double h = 1e-4;
                const Point p = at(s, a), ds = minus(at(s + h, a), at(s - h, a)),
                            da = minus(at(s, a + h), at(s, a - h));
                Point n = cross(ds, da);
                const double length = std::sqrt(n[0] * n[0] + n[1] * n[1] + n[2] * n[2]);
                for (double& c : n)
                    c /= length;
                const float values[6] = {float(p[0]), float(p[1]), float(p[2]),
                                         float(n[0]), float(n[1]), float(n[2])};
                file.write(reinterpret_cast<const char*>(values), sizeof values);
            }
        for (int ring = 0; ring < m_along; ++ring)
            for (int step = 0; step < m_around; ++step)
            {
                const auto node = [&](int r, int k) { return std::int32_t(r * m_around + (k % m_around)); };
                const std::int32_t a = node(ring, step), b = node(ring, step + 1),
                                   c = node(ring + 1, step + 1), d = node(ring + 1, step);
                writeTriangle(file, a, b, c);
                writeTriangle(file, a, c, d);
            }
        if (!file.flush())
            throw std::runtime_error("cannot write " + path.string());
    }

private:
    using Point = std::array<double, 3>;

    static Point at(double s, double a)
    {
        const double r = 1.0 + 0.10 * std::sin(9 * a) * std::cos(2.3 * s) + 0.04 * std::sin(31 * a + 11 * s) +
                         0.015 * std::sin(97 * a) * std::sin(41 * s);
        return {s, r * std::cos(a), r * std::sin(a)};
    }
    static Point minus(const Point& p, const Point& q) { return {p[0] - q[0], p[1] - q[1], p[2] - q[2]}; }
    static Point cross(const Point& u, const Point& v)
    {
        return {u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2], u[0] * v[1] - u[1] * v[0]};
    }
    static void writeTriangle(std::ofstream& file, std::int32_t a, std::int32_t b, std::int32_t c)
    {
        const std::uint8_t three = 3;
        const std::int32_t corners[3] = {a, b, c};
        file.write(reinterpret_cast<const char*>(&three), 1);
        file.write(reinterpret_cast<const char*>(corners), sizeof corners);
    }

    int m_around;
    int m_along;
};

// The frame 1280 x 720 on the page, the mesh loaded, and a view from above the tube's side.
std::string MacroStart(const fs::path& mesh)
{
    return "#!VTXMACRO 1\n$!NEWFRAME X = 0.25 Y = 0.25 WIDTH = 12.8 HEIGHT = 7.2\n$!LOADDATA FILE = \"" +
           mesh.string() +
           "\"\n$!ROTATE3DVIEW PSI = 35\n$!EXPORTSETUP ExportRegion = CURRENTFRAME\n"
           "$!EXPORTSETUP ImageWidth = " +
           std::to_string(FrameWidth) + "\n$!EXPORTSETUP AnimationSpeed = 30\n";
}

std::string Turn()
{
    std::ostringstream line;
    line << "$!ROTATE3DVIEW THETA = " << DegreesPerFrame << "\n";
    return line.str();
}

std::string MovieMacro(const fs::path& mesh, const std::string& format, const fs::path& movie, int frames)
{
    std::string macro = MacroStart(mesh) +
                        "$!EXPORTSETUP ExportFormat = " + (format == "mp4" ? "MPEG4" : "AVI") +
                        "\n$!EXPORTSETUP ExportFName = \"" + movie.string() + "\"\n$!EXPORTSTART\n";
    for (int frame = 1; frame < frames; ++frame)
        macro += Turn() + "$!EXPORTNEXTFRAME\n";
    return macro + "$!EXPORTFINISH\n";
}

std::string PngSeriesMacro(const fs::path& mesh, const fs::path& folder, int frames)
{
    std::string macro = MacroStart(mesh) + "$!EXPORTSETUP ExportFormat = PNG\n";
    for (int frame = 0; frame < frames; ++frame)
    {
        char name[32];
        std::snprintf(name, sizeof name, "frame_%04d.png", frame);
        macro += "$!EXPORTSETUP ExportFName = \"" + (folder / name).string() + "\"\n$!EXPORT\n";
        if (frame + 1 < frames)
            macro += Turn();
    }
    return macro;
}

// The load row: the mesh loaded and one picture of it drawn and written.
std::string LoadMacro(const fs::path& mesh, const fs::path& picture)
{
    return MacroStart(mesh) + "$!EXPORTSETUP ExportFormat = PNG\n$!EXPORTSETUP ExportFName = \"" +
           picture.string() + "\"\n$!EXPORT\n";
}

struct Measured
{
    double wall = 0.0;
    double cpu = 0.0;
    double peakMegabytes = 0.0;
};

Measured RunVantix(const fs::path& vantix, const fs::path& macro, const fs::path& folder)
{
    const fs::path times = folder / "time.txt";
    const std::string command = "/usr/bin/time -f '%e %U %S %M' -o '" + times.string() + "' '" +
                                vantix.string() + "' '" + macro.string() + "' > '" +
                                (folder / "vantix.log").string() + "' 2>&1";
    const int status = std::system(command.c_str());
    if (status != 0)
    {
        std::ifstream log(folder / "vantix.log");
        std::stringstream text;
        text << log.rdbuf();
        throw std::runtime_error("vantix failed on " + macro.string() + ":\n" + text.str());
    }
    std::ifstream file(times);
    Measured measured;
    double user = 0.0, system = 0.0, kilobytes = 0.0;
    if (!(file >> measured.wall >> user >> system >> kilobytes))
        throw std::runtime_error("cannot read the times of " + macro.string());
    measured.cpu = user + system;
    measured.peakMegabytes = kilobytes / 1024.0;
    return measured;
}

fs::path ProgramFolder()
{
    return fs::canonical("/proc/self/exe").parent_path();
}

void WriteText(const fs::path& path, const std::string& text)
{
    std::ofstream file(path);
    file << text;
    if (!file.flush())
        throw std::runtime_error("cannot write " + path.string());
}

void Report(long triangles, const std::string& what, int frames, const Measured& m)
{
    std::printf("%9ld  %-5s %6d %8.1f %7.1f %8.1f %9.0f\n", triangles, what.c_str(), frames, m.wall,
                frames > 0 ? frames / m.wall : 0.0, m.cpu, m.peakMegabytes);
    std::fflush(stdout);
}

} // namespace

int main(int argc, char** argv)
{
    const Options options = ParseOptions(argc, argv);
    const fs::path vantix = ProgramFolder() / "vantix";
    if (!fs::exists(vantix))
        Usage("no vantix program beside this one (" + vantix.string() + ")");
    fs::path folder = options.keep;
    if (folder.empty())
    {
        std::string pattern = (fs::temp_directory_path() / "big_mesh_movie_XXXXXX").string();
        if (!mkdtemp(pattern.data()))
            Usage("cannot make a work folder in " + fs::temp_directory_path().string());
        folder = pattern;
    }
    fs::create_directories(folder);
    try
    {
        std::printf("%d frames of %d pixels wide, the view turning %.1f degrees a frame; wall time includes "
                    "loading the mesh\n\n",
                    options.frames, FrameWidth, DegreesPerFrame);
        std::printf("triangles  run   frames   wall s     fps    cpu s  peak MB\n");
        for (const long requested : options.triangleCounts)
        {
            const BumpyTube tube(requested);
            const long triangles = tube.triangleCount();
            const fs::path mesh = folder / ("tube_" + std::to_string(triangles) + ".ply");
            tube.writePly(mesh);
            WriteText(folder / "load.mcr", LoadMacro(mesh, folder / "load.png"));
            Report(triangles, "load", 0, RunVantix(vantix, folder / "load.mcr", folder));
            for (const std::string& format : options.formats)
            {
                const fs::path macro = folder / (format + ".mcr");
                if (format == "png")
                {
                    const fs::path frames = folder / "png";
                    fs::remove_all(frames);
                    fs::create_directories(frames);
                    WriteText(macro, PngSeriesMacro(mesh, frames, options.frames));
                }
                else
                    WriteText(macro, MovieMacro(mesh, format, folder / ("movie." + format), options.frames));
                Report(triangles, format, options.frames, RunVantix(vantix, macro, folder));
            }
            if (options.keep.empty())
                fs::remove(mesh);
        }
    }
    catch (const std::exception& error)
    {
        std::fprintf(stderr, "big_mesh_movie: %s\n", error.what());
        if (options.keep.empty())
            fs::remove_all(folder);
        return 1;
    }
    if (options.keep.empty())
        fs::remove_all(folder);
    return 0;
}
