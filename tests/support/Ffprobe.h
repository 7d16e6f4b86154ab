// What a player sees in a movie or image file, read with the ffprobe program.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace testsupport
{

inline bool HaveFfprobe()
{
    return std::system("ffprobe -version >/dev/null 2>&1") == 0;
}

// The first video stream's codec_name, width, height, r_frame_rate and nb_read_frames (every frame
// decoded and counted) and the container's format_name; an empty map when ffprobe cannot read the file.
inline std::map<std::string, std::string> Probe(const std::filesystem::path& file)
{
    const std::string command =
        "ffprobe -v error -select_streams v:0 -count_frames -show_entries "
        "stream=codec_name,width,height,r_frame_rate,nb_read_frames:format=format_name "
        "-of default=noprint_wrappers=1 '" +
        file.string() + "' 2>/dev/null";
    std::map<std::string, std::string> values;
    std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
    if (!pipe)
        return values;
    char line[512];
    while (std::fgets(line, sizeof line, pipe.get()))
    {
        const std::string text(line);
        const auto equals = text.find('=');
        if (equals != std::string::npos)
            values[text.substr(0, equals)] = text.substr(equals + 1, text.find_last_not_of("\r\n") - equals);
    }
    return values;
}

// One value of Probe, or "" when it was not read.
inline std::string Probed(const std::map<std::string, std::string>& values, const std::string& key)
{
    const auto found = values.find(key);
    return found == values.end() ? std::string() : found->second;
}

// The brightest luma of each frame, in frame order (16 is black in the limited range movies use).
inline std::vector<int> FrameBrightness(const std::filesystem::path& file)
{
    const std::string command =
        "ffprobe -v error -f lavfi \"movie='" + file.string() +
        "',signalstats\" -show_entries frame_tags=lavfi.signalstats.YMAX -of csv=p=0 2>/dev/null";
    std::vector<int> brightness;
    std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
    char line[64];
    while (pipe && std::fgets(line, sizeof line, pipe.get()))
        brightness.push_back(std::atoi(line));
    return brightness;
}

} // namespace testsupport
