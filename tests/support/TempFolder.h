// A fresh folder for the files of one test (or benchmark run), removed with everything in it afterwards, and
// whole-file reading and writing.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>

namespace testsupport
{

class TempFolder
{
public:
    explicit TempFolder(const std::string& prefix = "vantix-test",
                        const std::filesystem::path& parent = std::filesystem::temp_directory_path())
    {
        std::string pattern = (parent / (prefix + "-XXXXXX")).string();
        if (!mkdtemp(pattern.data()))
            throw std::runtime_error("cannot make a temporary folder in " + parent.string());
        m_path = pattern;
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    ~TempFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    const std::filesystem::path& path() const { return m_path; }

private:
    std::filesystem::path m_path;
};

inline std::string ReadFile(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

inline void WriteFile(const std::filesystem::path& path, const std::string& text)
{
    std::ofstream file(path, std::ios::binary);
    file << text;
}

} // namespace testsupport
