// Scripting > Record Macro: what the host records from now on goes to a macro file when the recording
// stops. The file is made beside its place at once (so a place that cannot be written is told before the
// session, not after it) and replaces what was there only when the recording is written whole.
#pragma once

#include <vantix/toolbox/ReplacingFile.h>

#include <cstddef>
#include <memory>
#include <string>

namespace vantix::host::desktop
{

class MacroRecordingFile
{
public:
    // Throws std::runtime_error naming the file when it cannot be made.
    void start(const std::string& path);
    // Writes the lines recorded since start and stops the host recording; throws std::runtime_error naming
    // the file when it cannot be written (the earlier file stays as it was).
    void stop();
    bool recording() const { return m_file != nullptr; }
    const std::string& path() const { return m_path; }

private:
    std::unique_ptr<vantix::toolbox::ReplacingFile> m_file;
    std::string m_path;
    std::size_t m_firstLine = 0;
};

} // namespace vantix::host::desktop
