#include "gui/Prompts.h"

#include <cstdio>

namespace vantix::host::detail
{

namespace
{

// Lines after the first are indented under the first, so that a message stays one block on a terminal.
std::string Indented(const std::string& text)
{
    std::string indented;
    for (const char c : text)
    {
        indented += c;
        if (c == '\n')
            indented += "    ";
    }
    return indented;
}

const char* BoxTitle(MessageBoxType_e type)
{
    switch (type)
    {
    case MessageBoxType_Error:
        return "error";
    case MessageBoxType_Warning:
        return "warning";
    case MessageBoxType_Information:
        return "note";
    case MessageBoxType_Question:
    case MessageBoxType_YesNo:
        return "question";
    }
    return "message";
}

bool Asks(MessageBoxType_e type)
{
    return type == MessageBoxType_Question || type == MessageBoxType_YesNo;
}

void Echo(const UserMessage& message, bool answered)
{
    const char* const who = answered ? "" : " (no one to answer)";
    std::string line;
    switch (message.kind)
    {
    case UserMessage::Kind::ErrorMessage:
        line = "error: " + Indented(message.text);
        break;
    case UserMessage::Kind::MessageBox:
        line = std::string(BoxTitle(message.boxType)) + ": " + Indented(message.text);
        if (Asks(message.boxType))
        {
            const bool yesNo = message.boxType == MessageBoxType_YesNo;
            line += std::string("\n    answered ") +
                    (message.answer ? (yesNo ? "Yes" : "OK") : (yesNo ? "No" : "Cancel")) + who;
        }
        break;
    case UserMessage::Kind::FileDialog:
        line =
            "file dialog (" +
            std::string(message.fileOption == SelectFileOption_WriteFile ? "write" : "read") + ") for " +
            message.fileTypeName + " files " + message.filter + ", offering \"" + message.defaultFileName +
            "\": " + (message.answer ? "chose \"" + message.fileName + "\"" : std::string("cancelled") + who);
        break;
    }
    std::fprintf(stderr, "vantix: %s\n", line.c_str());
}

} // namespace

void Prompts::record(UserMessage message)
{
    Echo(message, message.scripted || m_prompter);
    m_log.push_back(std::move(message));
}

void Prompts::errorMessage(std::string text)
{
    UserMessage message;
    message.kind = UserMessage::Kind::ErrorMessage;
    message.text = std::move(text);
    if (m_prompter)
        m_prompter->showMessage(message.text, MessageBoxType_Error);
    record(std::move(message));
}

bool Prompts::messageBox(std::string text, MessageBoxType_e type)
{
    UserMessage message;
    message.kind = UserMessage::Kind::MessageBox;
    message.text = std::move(text);
    message.boxType = type;
    if (Asks(type))
    {
        message.scripted = !m_answers.empty();
        message.answer = message.scripted && m_answers.front();
        if (message.scripted)
            m_answers.pop_front();
        else if (m_prompter)
            message.answer = m_prompter->askQuestion(message.text, type);
    }
    else if (m_prompter)
        m_prompter->showMessage(message.text, type);
    const bool answer = message.answer;
    record(std::move(message));
    return answer;
}

std::optional<std::string> Prompts::fileName(SelectFileOption_e option, std::string fileTypeName,
                                             std::string defaultFileName, std::string filter)
{
    UserMessage message;
    message.kind = UserMessage::Kind::FileDialog;
    message.fileOption = option;
    message.fileTypeName = std::move(fileTypeName);
    message.defaultFileName = std::move(defaultFileName);
    message.filter = std::move(filter);
    std::optional<std::string> chosen;
    message.scripted = !m_fileNames.empty();
    if (message.scripted)
    {
        chosen = std::move(m_fileNames.front());
        m_fileNames.pop_front();
    }
    else if (m_prompter)
        chosen =
            m_prompter->askFileName(option, message.fileTypeName, message.defaultFileName, message.filter);
    message.answer = chosen.has_value();
    message.fileName = chosen.value_or("");
    record(std::move(message));
    return chosen;
}

void Prompts::reset()
{
    m_answers.clear();
    m_fileNames.clear();
    m_log.clear();
}

} // namespace vantix::host::detail
