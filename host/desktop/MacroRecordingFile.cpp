#include "desktop/MacroRecordingFile.h"

#include <vantix/host/Host.h>
#include <vantix/host/Macro.h>

#include <stdexcept>
#include <utility>
#include <vector>

namespace vantix::host::desktop
{

void MacroRecordingFile::start(const std::string& path)
{
    if (m_file)
        stop();
    m_file = std::make_unique<vantix::toolbox::ReplacingFile>(path);
    m_path = path;
    m_firstLine = recordedMacroLines().size();
    setMacroRecording(true);
}

void MacroRecordingFile::stop()
{
    if (!m_file)
        return;
    setMacroRecording(false);
    const std::unique_ptr<vantix::toolbox::ReplacingFile> file = std::move(m_file);
    const std::vector<std::string> lines = recordedMacroLines();
    std::string text = std::string(MacroHeader) + "\n";
    for (std::size_t i = m_firstLine; i < lines.size(); ++i)
    {
        if (lines[i].find_first_of("\r\n") != std::string::npos)
            throw std::runtime_error("cannot write " + m_path + ": a recorded command holds a line break");
        text += lines[i] + "\n";
    }
    file->write(text);
    file->commit();
}

} // namespace vantix::host::desktop
