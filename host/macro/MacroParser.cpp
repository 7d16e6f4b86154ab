#include "macro/MacroParser.h"

#include "core/InputExcerpt.h"
#include "macro/MacroError.h"
#include "macro/MacroText.h"
#include "macro/MacroTokenizer.h"

#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

namespace vantix::host::detail
{

namespace
{

// The arguments of one command, read token by token. Every complaint names the command, so that the
// reason reads on its own: "$!ROTATE3DVIEW: expected a number for the angle, found the end of the line".
class Arguments
{
public:
    Arguments(std::string command, std::string_view raw, const std::filesystem::path& folder)
        : m_command(std::move(command)), m_raw(raw), m_folder(folder)
    {
    }

    // The arguments as written, for the commands whose values are handed on as text.
    std::string_view raw() const { return m_raw; }

    std::string absolutePath(const std::string& path) const
    {
        if (path.empty())
            fail("the file name is empty");
        // The system would read the name only up to the NUL byte, and so open another file.
        if (path.find('\0') != std::string::npos)
            fail("the file name " + InputExcerpt(path) + " holds a NUL byte");
        const std::filesystem::path given(path);
        return (given.is_absolute() ? given : m_folder / given).lexically_normal().string();
    }

    bool atEnd() { return m_position == tokens().size(); }
    const MacroToken& peek() { return tokens()[m_position]; }

    // The next token, whatever it is.
    MacroToken next(const std::string& expected)
    {
        if (atEnd())
            fail("expected " + expected + ", found the end of the line");
        return tokens()[m_position++];
    }
    std::string word(const std::string& expected) { return take(MacroToken::Kind::Word, expected).text; }
    std::string text(const std::string& expected) { return take(MacroToken::Kind::Text, expected).text; }
    void equals() { take(MacroToken::Kind::Equals, "\"=\""); }
    double number(const std::string& what)
    {
        const std::string expected = "a number for " + what;
        const MacroToken& token = take(MacroToken::Kind::Word, expected);
        double value = 0.0;
        if (!ParseMacroNumber(token.text, value))
            fail("expected " + expected + ", found " + describe(token));
        return value;
    }
    // The keyword that comes next, which must be one of keywords, in capitals.
    std::string keyword(std::initializer_list<const char*> keywords)
    {
        std::string expected;
        for (const char* keyword : keywords)
            expected += (expected.empty() ? "" : ", ") + std::string(keyword);
        const std::size_t last = expected.rfind(", ");
        if (last != std::string::npos)
            expected.replace(last, 2, " or ");
        const MacroToken& token = take(MacroToken::Kind::Word, expected);
        for (const char* keyword : keywords)
            if (SameMacroWord(token.text, keyword))
                return keyword;
        fail("expected " + expected + ", found " + describe(token));
    }
    void end()
    {
        if (!atEnd())
            fail("expected the end of the line, found " + describe(peek()));
    }

    [[noreturn]] void fail(const std::string& reason) const { throw MacroError(m_command + ": " + reason); }

    static std::string describe(const MacroToken& token)
    {
        switch (token.kind)
        {
        case MacroToken::Kind::Equals:
            return "\"=\"";
        case MacroToken::Kind::Text:
            return "the quoted text " + InputExcerpt(QuoteMacroText(token.text, '"'));
        case MacroToken::Kind::Word:
            break;
        }
        return "\"" + InputExcerpt(token.text) + "\"";
    }

private:
    const std::vector<MacroToken>& tokens()
    {
        if (!m_tokens)
        {
            try
            {
                m_tokens = TokenizeMacroArguments(m_raw);
            }
            catch (const MacroError& error)
            {
                fail(error.what());
            }
        }
        return *m_tokens;
    }
    const MacroToken& take(MacroToken::Kind kind, const std::string& expected)
    {
        if (atEnd())
            fail("expected " + expected + ", found the end of the line");
        const MacroToken& token = tokens()[m_position];
        if (token.kind != kind)
            fail("expected " + expected + ", found " + describe(token));
        ++m_position;
        return token;
    }

    std::string m_command;
    std::string_view m_raw;
    const std::filesystem::path& m_folder;
    std::optional<std::vector<MacroToken>> m_tokens; // read on first use: some commands take raw text
    std::size_t m_position = 0;
};

MacroCommand ParseLoadData(Arguments& arguments)
{
    if (arguments.keyword({"DEMO", "FILE"}) == std::string("DEMO"))
    {
        arguments.end();
        return macro::LoadDemoData();
    }
    arguments.equals();
    macro::LoadDataFile command;
    command.path = arguments.absolutePath(arguments.text("a quoted file name"));
    arguments.end();
    return command;
}

MacroCommand ParseNewFrame(Arguments& arguments)
{
    macro::NewFrame command;
    while (!arguments.atEnd())
    {
        const std::string name = arguments.keyword({"X", "Y", "WIDTH", "HEIGHT"});
        std::optional<double>& value = name == "X"       ? command.x
                                       : name == "Y"     ? command.y
                                       : name == "WIDTH" ? command.width
                                                         : command.height;
        if (value)
            arguments.fail(name + " is given twice");
        arguments.equals();
        value = arguments.number(name);
        if ((name == "WIDTH" || name == "HEIGHT") && *value <= 0.0)
            arguments.fail(name + " must be greater than 0");
    }
    return command;
}

MacroCommand ParsePlotType(Arguments& arguments)
{
    arguments.equals();
    macro::SetPlotType command;
    PlotTypeFromKeyword(
        arguments.keyword({"CARTESIAN3D", "CARTESIAN2D", "XYLINE", "SKETCH", "POLARLINE", "AUTOMATIC"}),
        command.plotType);
    arguments.end();
    return command;
}

MacroCommand ParseSetStyleValue(Arguments& arguments)
{
    constexpr std::size_t MaximumNames = 7;
    macro::SetStyleValue command;
    command.path.push_back(arguments.word("a style setting's name"));
    while (!arguments.atEnd() && arguments.peek().kind == MacroToken::Kind::Word)
        command.path.push_back(arguments.word("a style setting's name"));
    if (command.path.size() > MaximumNames)
        arguments.fail("a style setting is named by at most seven names");
    arguments.equals();

    const std::string expected = "a number, TRUE, FALSE or a quoted text";
    const MacroToken value = arguments.next(expected);
    double number = 0.0;
    if (value.kind == MacroToken::Kind::Text)
        command.value = value.text;
    else if (value.kind == MacroToken::Kind::Word && SameMacroWord(value.text, "TRUE"))
        command.value = true;
    else if (value.kind == MacroToken::Kind::Word && SameMacroWord(value.text, "FALSE"))
        command.value = false;
    else if (value.kind == MacroToken::Kind::Word && ParseMacroNumber(value.text, number))
        command.value = number;
    else
        arguments.fail("expected " + expected + ", found " + Arguments::describe(value));
    arguments.end();
    return command;
}

MacroCommand ParseRotate3DView(Arguments& arguments)
{
    macro::Rotate3DView command;
    const std::string axis = arguments.keyword({"PSI", "THETA", "ALPHA"});
    command.axis = axis == "PSI" ? RotateAxis_Psi : axis == "THETA" ? RotateAxis_Theta : RotateAxis_Alpha;
    arguments.equals();
    command.degrees = arguments.number("the angle");
    arguments.end();
    return command;
}

MacroCommand ParseSolutionTime(Arguments& arguments)
{
    arguments.equals();
    macro::SetSolutionTime command;
    command.time = arguments.number("the solution time");
    arguments.end();
    return command;
}

template <typename Command>
MacroCommand ParseBare(Arguments& arguments)
{
    arguments.end();
    return Command();
}

template <macro::ExportStep::Step step>
MacroCommand ParseExportStep(Arguments& arguments)
{
    arguments.end();
    macro::ExportStep command;
    command.step = step;
    return command;
}

// The value is handed to the export as written, so that the lines the add-on records replay exactly as
// the export dialog set them up. Only a relative export file name is made absolute first.
MacroCommand ParseExportSetup(Arguments& arguments)
{
    const std::string_view raw = arguments.raw();
    const std::size_t equals = raw.find('=');
    if (equals == std::string_view::npos)
        arguments.fail("expected <name> = <value>");
    macro::ExportSetup command;
    command.name = std::string(TrimMacroBlanks(raw.substr(0, equals)));
    command.valueText = std::string(TrimMacroBlanks(raw.substr(equals + 1)));
    if (command.name.empty() || command.name.find_first_of(" \t'\"") != std::string::npos)
        arguments.fail("expected one word as the export setting's name before \"=\"");
    if (command.valueText.empty())
        arguments.fail("the value of " + InputExcerpt(command.name) + " is missing");

    if (SameMacroWord(command.name, "ExportFName"))
    {
        // The file name stands between quotation marks as the export dialog writes it, unescaped; a
        // quotation mark at one end only is a typing error, not part of the name.
        std::string fileName = command.valueText;
        const char first = fileName.front(), last = fileName.back();
        const bool quoted = first == '"' || first == '\'';
        if (quoted && (fileName.size() < 2 || last != first))
            arguments.fail(std::string("the file name of ExportFName has no closing ") + first);
        if (!quoted && (last == '"' || last == '\''))
            arguments.fail(std::string("the file name of ExportFName has no opening ") + last);
        if (quoted)
            fileName = fileName.substr(1, fileName.size() - 2);
        command.valueText = "\"" + arguments.absolutePath(fileName) + "\"";
    }
    return command;
}

MacroCommand ParseAddOnCommand(Arguments& arguments)
{
    std::optional<std::string> addOnID, text;
    while (!arguments.atEnd())
    {
        const std::string name = arguments.keyword({"ADDONID", "COMMAND"});
        std::optional<std::string>& value = name == "ADDONID" ? addOnID : text;
        if (value)
            arguments.fail(name + " is given twice");
        arguments.equals();
        value = arguments.text("a quoted text");
    }
    if (!addOnID)
        arguments.fail("ADDONID is missing");
    if (!text)
        arguments.fail("COMMAND is missing");
    return macro::AddOnCommand{*addOnID, *text};
}

MacroCommand ParseLoadAddOn(Arguments& arguments)
{
    macro::LoadAddOn command;
    command.path = arguments.absolutePath(arguments.text("a quoted module file name"));
    arguments.end();
    return command;
}

struct CommandSyntax
{
    const char* word;
    MacroCommand (*parse)(Arguments&);
};

const CommandSyntax Commands[] = {
    {"LOADDATA", ParseLoadData},
    {"NEWFRAME", ParseNewFrame},
    {"PLOTTYPE", ParsePlotType},
    {"SETSTYLEVALUE", ParseSetStyleValue},
    {"ROTATE3DVIEW", ParseRotate3DView},
    {"SOLUTIONTIME", ParseSolutionTime},
    {"REDRAW", ParseBare<macro::Redraw>},
    {"EXPORTSETUP", ParseExportSetup},
    {"EXPORTSTART", ParseExportStep<macro::ExportStep::Step::Start>},
    {"EXPORTNEXTFRAME", ParseExportStep<macro::ExportStep::Step::NextFrame>},
    {"EXPORTFINISH", ParseExportStep<macro::ExportStep::Step::Finish>},
    {"EXPORTCANCEL", ParseExportStep<macro::ExportStep::Step::Cancel>},
    {"EXPORT", ParseBare<macro::ExportStillImage>},
    {"ADDONCOMMAND", ParseAddOnCommand},
    {"LOADADDON", ParseLoadAddOn},
};

} // namespace

MacroParser::MacroParser(const std::filesystem::path& folder) : m_folder(std::filesystem::absolute(folder)) {}

MacroCommand MacroParser::parse(std::string_view line) const
{
    if (line.substr(0, 2) != "$!")
        throw MacroError("a command must begin with $!");
    const std::string_view rest = line.substr(2);
    const std::size_t wordEnd = rest.find_first_of(" \t='\"");
    const std::string_view word = rest.substr(0, wordEnd);
    if (word.empty())
        throw MacroError("a command word must follow $!");
    for (const CommandSyntax& syntax : Commands)
        if (SameMacroWord(word, syntax.word))
        {
            Arguments arguments(std::string("$!") + syntax.word,
                                wordEnd == std::string_view::npos ? std::string_view() : rest.substr(wordEnd),
                                m_folder);
            return syntax.parse(arguments);
        }
    throw MacroError("unknown command $!" + InputExcerpt(word));
}

} // namespace vantix::host::detail
