// What a player sees in a movie or image file, read with the ffprobe program.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <cstring>
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

// What ffprobe prints for these arguments, line by line without the line breaks; nothing when it fails.
inline std::vector<std::string> FfprobeLines(const std::string& arguments)
{
    std::vector<std::string> lines;
    std::unique_ptr<FILE, int (*)(FILE*)> pipe(
        popen(("ffprobe -v error " + arguments + " 2>/dev/null").c_str(), "r"), pclose);
    char line[512];
    while (pipe && std::fgets(line, sizeof line, pipe.get()))
        lines.emplace_back(line, std::strcspn(line, "\r\n"));
    return lines;
}

// The first video stream's codec_name, width, height, r_frame_rate and nb_read_frames (every frame
// decoded and counted) and the container's format_name; an empty map when ffprobe cannot read the file.
inline std::map<std::string, std::string> Probe(const std::filesystem::path& file)
{
    std::map<std::string, std::string> values;
    for (const std::string& line :
         FfprobeLines("-select_streams v:0 -count_frames -show_entries "
                      "stream=codec_name,width,height,r_frame_rate,nb_read_frames:format=format_name "
                      "-of default=noprint_wrappers=1 '" +
                      file.string() + "'"))
        if (line.find('=') != std::string::npos)
            values[line.substr(0, line.find('='))] = line.substr(line.find('=') + 1);
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
    std::vector<int> brightness;
    for (const std::string& line :
         FfprobeLines("-f lavfi \"movie='" + file.string() +
                      "',signalstats\" -show_entries frame_tags=lavfi.signalstats.YMAX "
                      "-of csv=p=0"))
        brightness.push_back(std::atoi(line.c_str()));
    return brightness;
}

// Every frame of a movie decoded by the ffmpeg program, as RGB bytes of width x height pixels each; none
// when ffmpeg cannot read the file.
inline std::vector<std::vector<unsigned char>> DecodedFrames(const std::filesystem::path& file, int width,
                                                             int height)
{
    std::vector<std::vector<unsigned char>> frames;
    std::unique_ptr<FILE, int (*)(FILE*)> pipe(
        popen(("ffmpeg -v error -i '" + file.string() + "' -f rawvideo -pix_fmt rgb24 - 2>/dev/null").c_str(),
              "r"),
        pclose);
    std::vector<unsigned char> frame(static_cast<std::size_t>(width) * height * 3);
    while (pipe && !frame.empty() && std::fread(frame.data(), 1, frame.size(), pipe.get()) == frame.size())
        frames.push_back(frame);
    return frames;
}

} // namespace testsupport
