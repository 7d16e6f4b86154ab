// The executers of the add-on's macro commands, one per command.
#pragma once

#include "addon/CommandExecuterAbstract.h"

#include <memory>

namespace vantix::vtxutiltools
{

class CommandExecuterAbstractFactory
{
public:
    // "OpenSettingsFile FileName=...": the file's key frames and settings replace the main dialog's.
    class CommandExecuterOpenSettings : public CommandExecuterAbstract
    {
    public:
        ~CommandExecuterOpenSettings() override = default;
        void executeCommand(const MacroParameterList& parameters) override;
    };

    // "Animate AnimationDestination=OnScreen|ToFile": the main dialog's whole key frame list with its
    // settings; an animation to file uses the host's current export setup, which the recorded macro sets
    // up ahead of the command.
    class CommandExecuterAnimate : public CommandExecuterAbstract
    {
    public:
        ~CommandExecuterAnimate() override = default;
        void executeCommand(const MacroParameterList& parameters) override;
    };

    // A new executer for the command; empty for a value that is no command.
    static std::unique_ptr<CommandExecuterAbstract> getMacroExecuter(Command_e command);
};

} // namespace vantix::vtxutiltools
