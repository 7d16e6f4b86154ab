// The one object through which the add-on records its macro commands.
#pragma once

#include "core/Enumerations.h"
#include "core/KeyFrameError.h"
#include "macro/MacroCommandManager.h"

#include <VtxUtil.h>

#include <memory>

namespace vantix::vtxutiltools
{

// The add-on's own command texts, failing with the add-on's one error type.
using AddOnMacroCommandManager = MacroCommandManager<Command_e, Parameter_e, KeyFrameError>;
// A parsed or to-be-recorded command's parameters, in order, duplicates kept.
using MacroParameterList = AddOnMacroCommandManager::ParameterList;

class MacroManager
{
public:
    // Built on first use and kept until the module is unloaded.
    static MacroManager& instance();

    // Records the command into the macro the host is recording; nothing when it is not recording. Never
    // into the data set journal, which tells how the data came about: the add-on's commands change views
    // and files, not data. Holds the host lock throughout.
    void recordCommand(Command_e command, const MacroParameterList& parameters);

    // The replay side. It carries commands out on the main dialog, so it is defined with the command
    // executers, on the add-on's top floor.
    //
    // Registers vantixCallback under the add-on's macro identifier; the entry point calls it once.
    static void registerCallback();
    // The host's macro command callback: parses one recorded command and carries it out. A failure of any
    // kind answers FALSE with "Key Frame Animation error:" and the message on a second line, in a host
    // string stored through errorMessage (null when the host had no memory for it); nothing is thrown.
    static Boolean vantixCallback(char* commandText, char** errorMessage);

private:
    MacroManager();

    // Items of the add-on's command texts are separated by one blank. Owned: the manager cannot be copied.
    std::unique_ptr<AddOnMacroCommandManager> m_commandManager;
};

} // namespace vantix::vtxutiltools
