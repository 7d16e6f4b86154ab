#include "app/InputFiles.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string_view>

namespace vantix::host::detail
{

namespace fs = std::filesystem;

bool IsDemoData(const std::string& data)
{
    constexpr std::string_view Demo = "demo";
    return data.size() == Demo.size() &&
           std::equal(data.begin(), data.end(), Demo.begin(),
                      [](char given, char word)
                      { return std::tolower(static_cast<unsigned char>(given)) == word; });
}

std::string UnreadableInput(const std::string& path, const std::string& what)
{
    const std::string failure = "cannot read the " + what + " '" + path + "': ";
    std::error_code error;
    if (fs::is_directory(path, error))
        return failure + "it is a folder";
    std::ifstream file(path, std::ios::binary);
    if (!file)
        return failure + std::strerror(errno);
    return "";
}

std::string UnwritableOutput(const std::string& path,
                             const std::vector<std::pair<std::string, std::string>>& inputs)
{
    const std::string failure = "cannot write '" + path + "': ";
    std::error_code error;
    if (fs::is_directory(path, error))
        return failure + "it is a folder";
    const fs::path folder = fs::absolute(path, error).parent_path();
    if (!fs::is_directory(folder, error))
        return failure + "there is no folder " + folder.string();
    for (const auto& [input, what] : inputs)
        if (fs::equivalent(path, input, error))
            return failure + "it is " + what;
    return "";
}

} // namespace vantix::host::detail
