#pragma once

#include <VtxUtil.h>

#include <string>

namespace vantix::vtxutiltools
{

// The current file of a dialog: the name offered and kept between prompts, the default extension that a
// name without one is given, and the file type name the host's file dialog shows. Every name it holds has
// an extension.
class CurrentFileManager
{
public:
    CurrentFileManager(const std::string& defaultFileName, const std::string& extension,
                       const std::string& fileTypeName);

    const std::string& fileName() const { return m_fileName; }
    const std::string& extension() const { return m_extension; }
    bool fileHasBeenSelected() const { return m_fileHasBeenSelected; }

    // A name with an extension is kept as it is and its extension becomes the default one; a name without
    // is given the default extension.
    void setFileName(const std::string& name);
    void setExtension(const std::string& extension);

    // Asks the user for a file through the host's file dialog. A chosen name with another extension than
    // the default one is confirmed with the user; writing over an existing file too (option
    // SelectFileOption_WriteFile). True when a file was chosen: it is then the current file. False when the
    // user cancelled or declined to overwrite; nothing changes then.
    bool promptForFile(SelectFileOption_e option);

private:
    bool m_fileHasBeenSelected;
    std::string m_fileName;
    std::string m_extension;
    std::string m_fileTypeName;
};

// True when the file does not exist or the user agrees to overwrite it.
bool promptForFileOverwrite(const std::string& fileName);
// True when the file can be opened for reading.
bool fileExists(const std::string& fileName);
// The text after the last dot of the name, directories included; empty when there is no dot or the name
// ends with one.
std::string getFileNameExtension(const std::string& fileName);

} // namespace vantix::vtxutiltools
