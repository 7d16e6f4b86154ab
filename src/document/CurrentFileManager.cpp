#include "document/CurrentFileManager.h"

#include "platform/HostGuards.h"

#include <VtxUtil.h>

#include <fstream>

namespace vantix::vtxutiltools
{

namespace
{

// Everything after the last dot of the whole name is the extension; a name without a dot gets one.
std::string ReplaceExtension(const std::string& name, const std::string& extension)
{
    const std::string::size_type dot = name.rfind('.');
    const std::string stem = dot == std::string::npos ? name + "." : name.substr(0, dot + 1);
    return stem + extension;
}

bool AskYesNo(const std::string& question)
{
    const HostLock lock;
    return VtxUtilDialogMessageBox(question.c_str(), MessageBoxType_YesNo) != FALSE;
}

// A name the host's file dialog handed over, released with the host's own function however the scope is
// left.
class ChosenFileName
{
public:
    ChosenFileName() = default;
    ~ChosenFileName()
    {
        if (m_text)
            VtxUtilStringDealloc(&m_text);
    }
    ChosenFileName(const ChosenFileName&) = delete;
    ChosenFileName& operator=(const ChosenFileName&) = delete;

    char** address() { return &m_text; }
    bool empty() const { return m_text == nullptr; }
    std::string text() const { return m_text; }

private:
    char* m_text = nullptr;
};

} // namespace

CurrentFileManager::CurrentFileManager(const std::string& defaultFileName, const std::string& extension,
                                       const std::string& fileTypeName)
    : m_fileHasBeenSelected(false), m_fileName(ReplaceExtension(defaultFileName, extension)),
      m_extension(extension), m_fileTypeName(fileTypeName)
{
}

void CurrentFileManager::setFileName(const std::string& name)
{
    const std::string extension = getFileNameExtension(name);
    if (extension.empty())
    {
        m_fileName = ReplaceExtension(name, m_extension);
        return;
    }
    m_extension = extension;
    m_fileName = name;
}

void CurrentFileManager::setExtension(const std::string& extension)
{
    m_extension = extension;
    m_fileName = ReplaceExtension(m_fileName, m_extension);
}

bool CurrentFileManager::promptForFile(SelectFileOption_e option)
{
    const std::string filter = "*." + m_extension;
    const HostLock lock;

    std::string name;
    {
        ChosenFileName chosen;
        if (!VtxUtilDialogGetFileName(option, chosen.address(), m_fileTypeName.c_str(), m_fileName.c_str(),
                                      filter.c_str()) ||
            chosen.empty())
            return false;
        name = chosen.text();
    }

    const std::string extension = getFileNameExtension(name);
    if (extension.empty())
    {
        name = ReplaceExtension(name, m_extension);
    }
    else if (extension != m_extension)
    {
        // Asked also when choosing a file to read: the user may have mistyped the extension either way.
        const bool keepExtension =
            AskYesNo("You have specified an extension other than the default file extension\n"
                     "Are you sure you want to save the file as " +
                     name +
                     "\n"
                     "Click \"No\" to restore the default file extension.");
        if (!keepExtension)
            name = ReplaceExtension(name, m_extension);
    }

    if (option == SelectFileOption_WriteFile && !promptForFileOverwrite(name))
        return false;

    m_fileName = name;
    m_fileHasBeenSelected = true;
    return true;
}

bool promptForFileOverwrite(const std::string& fileName)
{
    if (!fileExists(fileName))
        return true;
    return AskYesNo("The file: " + fileName + " exists." + "\n" + "Are you sure you want to overwrite it?");
}

bool fileExists(const std::string& fileName)
{
    return std::ifstream(fileName).is_open();
}

std::string getFileNameExtension(const std::string& fileName)
{
    const std::string::size_type dot = fileName.rfind('.');
    return dot == std::string::npos ? std::string() : fileName.substr(dot + 1);
}

} // namespace vantix::vtxutiltools
