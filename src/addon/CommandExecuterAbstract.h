// Carries out one parsed macro command of the add-on.
#pragma once

#include "core/EnumMap.h"
#include "core/Enumerations.h"
#include "core/KeyFrameError.h"
#include "macro/MacroManager.h"

#include <boost/lexical_cast.hpp>

#include <string>
#include <type_traits>

namespace vantix::vtxutiltools
{

class CommandExecuterAbstract
{
public:
    virtual ~CommandExecuterAbstract() = default;
    // Throws KeyFrameError with the message for the user when the command cannot be carried out.
    virtual void executeCommand(const MacroParameterList& parameters) = 0;

protected:
    // The first value given for parameter, converted to T: a text as it stands, a destination by its name
    // in any case with nothing around it. Values of parameters the command does not use, and later values
    // of the same parameter, are ignored. Throws KeyFrameError when the parameter is missing or its value
    // does not convert, leaving value as it was.
    template <typename T>
    void getRequiredParameter(Parameter_e parameter, const MacroParameterList& parameters, T& value) const
    {
        for (const auto& [given, text] : parameters)
        {
            if (given != parameter)
                continue;
            if constexpr (std::is_same_v<T, std::string>)
                value = text;
            else
            {
                try
                {
                    value = boost::lexical_cast<T>(text);
                }
                catch (const boost::bad_lexical_cast&)
                {
                    throw KeyFrameError(ParameterMessage("invalid", parameter));
                }
            }
            return;
        }
        throw KeyFrameError(ParameterMessage("missing", parameter));
    }

private:
    static std::string ParameterMessage(const char* problem, Parameter_e parameter)
    {
        return std::string("Invalid macro command: ") + problem + " value for parameter \"" +
               EnumMap<Parameter_e>::toString(parameter) + "\"";
    }
};

} // namespace vantix::vtxutiltools
