// The host's own API for macros: replaying a macro file, writing the recorded macro, and loading add-on
// modules (which a macro can ask for too).
//
// A macro file is text: the header line "#!VTXMACRO 1", then one command per line, each beginning "$!";
// blank lines and lines beginning with "#" are skipped. The commands are listed in the README ("Macros").
#pragma once

#include <string>

namespace vantix::host
{

// The header line every macro file begins with.
inline constexpr const char* MacroHeader = "#!VTXMACRO 1";

struct MacroResult
{
    enum class Status
    {
        Ok,
        Unreadable, // the file could not be read; nothing was run
        NotAMacro,  // the first line is not the macro header; nothing was run
        Failed      // a command failed; the commands before it have run
    };
    Status status = Status::Ok;
    // Empty on success; otherwise one message naming the macro and, except for Unreadable, the line:
    // "<file>:<line>: <reason>".
    std::string message;
    int line = 0; // the line of the failing command or of the bad header; 0 otherwise

    bool ok() const { return status == Status::Ok; }
};

// Replays a macro file. Relative paths in it are taken from the file's folder. The host's lock state is
// left as it is; the replay stops at the first command that fails.
MacroResult runMacroFile(const std::string& path);

// Replays a macro given as text, with name standing for the file in messages and relative paths taken
// from folder.
MacroResult runMacroText(const std::string& text, const std::string& name, const std::string& folder = ".");

// Pieces of macro lines, for a program that writes its own: a text between quote marks (" or '), escaped
// so that it reads back the same, and the shortest decimal that reads back as exactly the same number.
std::string quotedMacroText(const std::string& text, char quote = '"');
std::string macroNumber(double value);

// The recorded macro (Host.h: setMacroRecording, recordedMacroLines) as the text of a macro file.
// Throws std::runtime_error when a recorded line holds a line break, which no macro file can carry.
std::string recordedMacroText();
// Writes recordedMacroText() to a file; throws std::runtime_error naming the file when it cannot.
void writeRecordedMacro(const std::string& path);

// Loads an add-on module and calls its entry point InitVtxAddOn113, once per module in a process: loading
// the same module again does nothing. Modules stay loaded until the process ends. Throws
// std::runtime_error naming the file and the reason when the module cannot be loaded or has no entry point.
void loadAddOnModule(const std::string& path);

} // namespace vantix::host
