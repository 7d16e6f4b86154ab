// The messages, questions and file dialogs the host shows add-ons' users. Every one is logged for the tests
// and written to standard error (the batch program's only display). Questions and file dialogs take their
// answers from a script; with nothing scripted the person at the desktop answers (a prompter), and without
// one the host answers for the absent user with the choice that changes nothing: No (or Cancel), and a
// cancel.
#pragma once

#include <vantix/host/Gui.h>

#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <vector>

namespace vantix::host::detail
{

using vantix::host::UserMessage;

class Prompts
{
public:
    void errorMessage(std::string text);
    // Error, Warning and Information boxes answer true; Question and YesNo boxes the user's answer.
    bool messageBox(std::string text, MessageBoxType_e type);
    // The name the user chose; nothing after a cancel.
    std::optional<std::string> fileName(SelectFileOption_e option, std::string fileTypeName,
                                        std::string defaultFileName, std::string filter);

    // Null for none; a reset keeps it.
    void setPrompter(vantix::host::UserPrompter* prompter) { m_prompter = prompter; }

    void scriptAnswer(bool yes) { m_answers.push_back(yes); }
    void scriptFileName(std::string name) { m_fileNames.emplace_back(std::move(name)); }
    void scriptFileCancel() { m_fileNames.emplace_back(); }
    std::size_t pendingScripts() const { return m_answers.size() + m_fileNames.size(); }

    const std::vector<UserMessage>& log() const { return m_log; }
    void clearLog() { m_log.clear(); }
    // Forgets the script and the log.
    void reset();

private:
    void record(UserMessage message);

    std::deque<bool> m_answers;
    std::deque<std::optional<std::string>> m_fileNames; // nothing: a cancel
    std::vector<UserMessage> m_log;
    vantix::host::UserPrompter* m_prompter = nullptr;
};

} // namespace vantix::host::detail
