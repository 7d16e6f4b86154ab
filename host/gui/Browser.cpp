#include "gui/Browser.h"

#include <cstdlib>
#include <sstream>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace vantix::host::detail
{

namespace
{

bool HasEnvironment(const char* name)
{
    const char* value = std::getenv(name);
    return value && *value;
}

// The program's full path from the PATH, so that nothing but exec is left to do after the fork.
std::string FindOnPath(const std::string& program)
{
    const char* path = std::getenv("PATH");
    std::istringstream folders(path ? path : "");
    std::string folder;
    while (std::getline(folders, folder, ':'))
    {
        const std::string candidate = (folder.empty() ? "." : folder) + "/" + program;
        if (::access(candidate.c_str(), X_OK) == 0)
            return candidate;
    }
    return "";
}

// Runs the program in a grandchild, so that it belongs to no one here and leaves no zombie behind, and the
// host does not wait for the browser.
bool Detach(const std::vector<std::string>& arguments)
{
    std::vector<char*> argv;
    for (const std::string& argument : arguments)
        argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);
    const pid_t child = ::fork();
    if (child < 0)
        return false;
    if (child == 0)
    {
        ::setsid();
        const pid_t grandchild = ::fork();
        if (grandchild != 0)
            ::_exit(grandchild < 0 ? 1 : 0);
        ::execv(argv[0], argv.data());
        ::_exit(127);
    }
    int status = 0;
    if (::waitpid(child, &status, 0) != child)
        return false;
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

} // namespace

bool StartBrowser(const std::string& target)
{
    if (HasEnvironment("BROWSER"))
        // The variable may hold a command with arguments; the shell splits it, the target stays one word.
        return Detach({"/bin/sh", "-c", "exec $BROWSER \"$1\"", "vantix-help", target});
    if (!HasEnvironment("DISPLAY") && !HasEnvironment("WAYLAND_DISPLAY"))
        return false;
    const std::string opener = FindOnPath("xdg-open");
    return !opener.empty() && Detach({opener, target});
}

} // namespace vantix::host::detail
