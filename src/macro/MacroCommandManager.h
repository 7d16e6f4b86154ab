// The text form of the add-on's macro commands: a command word, then parameters name=value, separated by
// blanks, for example
//
//     OpenSettingsFile FileName="/data/runs/wing study/wing.keyframe"
//
// Words are read in any case and written in the tables' own spelling (EnumMap). A value holding a blank
// is written in double quotation marks. There is no escape: quotation marks at either end of a value are
// dropped when it is read, and one inside a quoted value ends the quoted part, so only values without a
// quotation mark come back unchanged.
#pragma once

#include "core/EnumMap.h"
#include "core/InputExcerpt.h"
#include "platform/AddOnID.h"
#include "platform/HostGuards.h"

#include <VtxUtil.h>
#include <boost/algorithm/string/classification.hpp>
#include <boost/algorithm/string/trim.hpp>

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace vantix::vtxutiltools
{

// The identifier under which the host keeps the add-on's macro commands, in a recorded macro and in the
// data set journal; on replay the host hands the commands to the callback registered under it.
inline constexpr const char* MacroCommandAddOnID = "Key Frame Animation";

template <typename CommandEnum, typename ParameterEnum, typename ErrorType>
class MacroCommandManager
{
public:
    // Parameters in the order of the command text; a parameter given twice is listed twice.
    using ParameterList = std::vector<std::pair<ParameterEnum, std::string>>;

    // delimiters: the characters that separate the items of a command text, and the text written between
    // them.
    explicit MacroCommandManager(std::string delimiters) : m_delimiters(std::move(delimiters)) {}
    virtual ~MacroCommandManager() = default;

    MacroCommandManager(const MacroCommandManager&) = delete;
    MacroCommandManager& operator=(const MacroCommandManager&) = delete;

    // Appends the items of commandString to tokens: the command word as it stands, then each parameter
    // item, a value in quotation marks kept whole with its blanks. Throws ErrorType when an item after the
    // command word has no "=" anywhere from its start on, or a quotation mark right after "=" is not
    // closed.
    void tokenize(const std::string& commandString, std::vector<std::string>& tokens) const
    {
        std::string::size_type start = commandString.find_first_not_of(m_delimiters);
        if (start == std::string::npos)
            return;
        std::string::size_type end = commandString.find_first_of(m_delimiters, start);
        // The first "=" at or after the current item. Items come in order, so it is searched for again only
        // once the items have passed it, and the text is scanned for "=" once in all.
        std::string::size_type equals = 0;
        for (;;)
        {
            tokens.push_back(commandString.substr(start, end == std::string::npos ? end : end - start));
            if (end == std::string::npos)
                return;
            const std::string::size_type next = commandString.find_first_not_of(m_delimiters, end);
            if (next == std::string::npos)
                return;
            // Searched in the whole rest of the text: an item without "=" is split off here and refused
            // by the parser, which can then name it.
            if (equals < next)
                equals = commandString.find('=', next);
            if (equals == std::string::npos)
                throw ErrorType("Invalid macro command string format.");
            std::string::size_type from = next;
            if (equals + 1 < commandString.size() && commandString[equals + 1] == '"')
            {
                from = commandString.find('"', equals + 2);
                if (from == std::string::npos)
                    throw ErrorType("Invalid macro command string format. Unmatched quotation mark.");
            }
            end = commandString.find_first_of(m_delimiters, from);
            start = next;
        }
    }

    // Reads commandString into command and appends its parameters to parameters. command is written as
    // soon as the command word is known; on a failure the parameters read before it stay appended.
    // Whether a command has the parameters it needs is not checked here. Throws ErrorType naming what is
    // wrong.
    void parseMacroCommandString(const std::string& commandString, CommandEnum& command,
                                 ParameterList& parameters) const
    {
        std::vector<std::string> tokens;
        tokenize(commandString, tokens);
        if (tokens.empty())
            throw ErrorType("Invalid macro command string.");
        command = ToEnum<CommandEnum>(tokens.front(), "Unknown macro command: ");
        for (auto token = tokens.begin() + 1; token != tokens.end(); ++token)
        {
            const std::string::size_type equals = token->find('=');
            if (equals == std::string::npos)
                throw ErrorType("Invalid macro parameter string: " + InputExcerpt(*token));
            const ParameterEnum parameter =
                ToEnum<ParameterEnum>(token->substr(0, equals), "Unknown macro parameter: ");
            std::string value = token->substr(equals + 1);
            boost::algorithm::trim_if(value, boost::algorithm::is_any_of("\""));
            parameters.emplace_back(parameter, std::move(value));
        }
    }

    // The command text of command and parameters, in the tables' spelling. Nothing is escaped; an empty
    // value is written as nothing after "=".
    std::string buildMacroCommandString(const CommandEnum& command, const ParameterList& parameters) const
    {
        std::string commandString = EnumMap<CommandEnum>::toString(command);
        for (const auto& parameter : parameters)
        {
            commandString += m_delimiters;
            commandString += EnumMap<ParameterEnum>::toString(parameter.first);
            commandString += '=';
            if (parameter.second.find_first_of(m_delimiters) == std::string::npos)
                commandString += parameter.second;
            else
                commandString += '"' + parameter.second + '"';
        }
        return commandString;
    }

    // Records the command into the macro the host is recording, if it is recording, and, when alsoJournal
    // is true, into the data set's journal if the host can take it there. The text is built only when it
    // goes somewhere. Holds the host lock throughout.
    void recordMacroCommand(const CommandEnum& command, const ParameterList& parameters,
                            bool alsoJournal) const
    {
        HostLock lock;
        const bool recording = VtxUtilMacroIsRecordingActive() != FALSE;
        const bool journal = alsoJournal && VtxUtilDataSetJournalIsValid() != FALSE;
        if (!recording && !journal)
            return;
        const std::string commandString = buildMacroCommandString(command, parameters);
        // The host's answers are not looked at: a command it would not keep is nothing the user can act on.
        if (recording)
            VtxUtilMacroRecordExtCommand(MacroCommandAddOnID, commandString.c_str());
        if (journal)
            VtxUtilDataSetAddJournalCommand(MacroCommandAddOnID, commandString.c_str(), nullptr);
    }

private:
    // The value of word, or ErrorType with messagePrefix followed by the word, quoted.
    template <typename Enum>
    static Enum ToEnum(const std::string& word, const char* messagePrefix)
    {
        try
        {
            return EnumMap<Enum>::toEnum(word);
        }
        catch (const std::out_of_range&)
        {
            throw ErrorType(messagePrefix + InputExcerpt(word));
        }
    }

    std::string m_delimiters;
};

} // namespace vantix::vtxutiltools
