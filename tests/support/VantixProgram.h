// The vantix program run as its users run it, from a test: what it wrote on standard output and standard
// error, and its exit status.
#pragma once

#include "support/TempFolder.h"

#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <pty.h>
#include <stdexcept>
#include <string>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>
#include <vector>

namespace testsupport
{

struct Outcome
{
    int exitStatus = -1; // the negative signal number when the program was killed
    std::string out, err;
};

// Runs the program with arguments until it ends, standard output going to a file and standard error to a
// pipe, or to a pseudo terminal when errToTerminal is set. The signal is sent once standard error holds
// interruptOnceErrHas.
inline Outcome RunVantix(const std::filesystem::path& folder, std::vector<std::string> arguments,
                         bool errToTerminal = false, const std::string& interruptOnceErrHas = "",
                         int signal = SIGINT)
{
    const int out = open((folder / "stdout").string().c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    int err[2];
    termios raw{};
    cfmakeraw(&raw); // no line-end translation: the test sees exactly what the program writes
    if (out < 0 || (errToTerminal ? openpty(&err[0], &err[1], nullptr, &raw, nullptr) : pipe(err)) != 0)
        throw std::runtime_error("no file, pipe or pseudo terminal for the program's output");
    std::vector<char*> argv = {const_cast<char*>(VANTIX_PROGRAM_PATH)};
    for (std::string& argument : arguments)
        argv.push_back(argument.data());
    argv.push_back(nullptr);
    const pid_t child = fork();
    if (child == 0)
    {
        dup2(out, STDOUT_FILENO);
        dup2(err[1], STDERR_FILENO);
        for (const char* display : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
            unsetenv(display); // without a macro the program would open its desktop
        execv(argv[0], argv.data());
        _exit(127);
    }
    close(out);
    close(err[1]);

    Outcome outcome;
    bool interrupt = !interruptOnceErrHas.empty();
    char buffer[4096];
    // Until the end, or EIO once a terminal's other side is closed.
    for (ssize_t read; (read = ::read(err[0], buffer, sizeof buffer)) > 0;)
    {
        outcome.err.append(buffer, static_cast<std::size_t>(read));
        if (interrupt && outcome.err.find(interruptOnceErrHas) != std::string::npos)
            interrupt = kill(child, signal) != 0; // only once
    }
    close(err[0]);
    int status = 0;
    waitpid(child, &status, 0);
    outcome.exitStatus = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    outcome.out = ReadFile((folder / "stdout").string());
    return outcome;
}

} // namespace testsupport
