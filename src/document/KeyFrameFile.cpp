#include "document/KeyFrameFile.h"

#include "core/CaseInsensitive.h"
#include "core/Enumerations.h"
#include "core/InputExcerpt.h"
#include "core/KeyFrame.h"
#include "core/KeyFrameError.h"
#include "core/Settings.h"
#include "core/View.h"
#include "document/ListModelKeyFrame.h"

#include <boost/algorithm/string/trim.hpp>
#include <vantix/toolbox/ReplacingFile.h>

#include <fstream>
#include <istream>
#include <locale>
#include <optional>
#include <ostream>
#include <sstream>
#include <stdexcept>
#include <utility>

namespace vantix::vtxutiltools
{

const std::string KeyFrameFile::m_headerToken = "#!KeyFrame";
const std::string KeyFrameFile::m_fileNameExtension = "keyframe";

template <>
void EnumMap<KeyFrameFile::Section_e>::initializeMaps()
{
    m_valueToText.emplace(KeyFrameFile::Settings, "%Settings");
    m_valueToText.emplace(KeyFrameFile::KeyFrameView, "%KeyFrameView");
    ReverseMap(m_valueToText, m_textToValue);
}

#define VANTIX_KEYFRAME_FILE_TEXT(name) m_valueToText.emplace(KeyFrameFile::name, #name);

template <>
void EnumMap<KeyFrameFile::Setting_e>::initializeMaps()
{
    VANTIX_KEYFRAME_FILE_SETTINGS(VANTIX_KEYFRAME_FILE_TEXT)
    ReverseMap(m_valueToText, m_textToValue);
}

template <>
void EnumMap<KeyFrameFile::KeyFrameItem_e>::initializeMaps()
{
    VANTIX_KEYFRAME_FILE_ITEMS(VANTIX_KEYFRAME_FILE_TEXT)
    ReverseMap(m_valueToText, m_textToValue);
}

#undef VANTIX_KEYFRAME_FILE_TEXT

namespace
{

constexpr double LargestWidth = 1e150;
constexpr std::uint64_t ValuesPerTriple = 3;
// The lines of a key frame file are short (the longest holds a name). A longer line is a damaged file or a
// device that never ends, and reading stops there rather than holding it whole.
constexpr std::size_t LongestLine = 64 * 1024;

bool IsLineSpace(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\v' || c == '\f';
}

// Numbers in a key frame file look the same whatever locale the host runs in: no digit grouping, and a
// point as the decimal separator.
template <typename Stream>
void UseFileLocale(Stream& stream)
{
    stream.imbue(std::locale::classic());
}

// One string stream serves all the entries of a section, so that reading costs no stream construction
// per line.
void StartEntry(std::istringstream& entry, const std::string& line)
{
    entry.clear();
    entry.str(line);
}

std::string NextWord(std::istringstream& entry)
{
    std::string word;
    entry >> word;
    return word;
}

// Looks word up, ignoring case, without the out-of-range exception of EnumMap::toEnum: an unknown word is
// reported in the reader's own words.
template <typename Enum>
bool LookUp(const std::string& word, Enum& value)
{
    const typename EnumMap<Enum>::TextToValue& table = EnumMap<Enum>::getInstance().textToValue();
    const auto found = table.find(word);
    if (found == table.end())
        return false;
    value = found->second;
    return true;
}

template <typename Enum>
std::ostream& WriteKey(std::ostream& out, Enum key)
{
    return out << "\n " << EnumMap<Enum>::toString(key);
}

template <typename Enum, typename Value>
void WriteEntry(std::ostream& out, Enum key, const Value& value)
{
    WriteKey(out, key) << ' ' << value;
}

void WriteSectionMarker(std::ostream& out, KeyFrameFile::Section_e section)
{
    out << '\n' << EnumMap<KeyFrameFile::Section_e>::toString(section);
}

void WriteSectionStart(std::ostream& out, KeyFrameFile::Section_e section)
{
    out << '\n';
    WriteSectionMarker(out, section);
}

} // namespace

void KeyFrameFile::saveFile(const std::string& fileName, const Settings_s& settings,
                            const ListModelKeyFrame& model) const
{
    if (model.size() == 0)
        throw KeyFrameError(model.emptyModelMessage());

    // The file is written whole or not at all: an earlier file at the path stays as it was until the new
    // one is complete.
    std::optional<vantix::toolbox::ReplacingFile> file;
    try
    {
        file.emplace(fileName);
    }
    catch (const std::runtime_error&)
    {
        throw KeyFrameError("Unable to open file for writing.");
    }
    std::ostringstream out;
    UseFileLocale(out);
    out << std::boolalpha;
    out << m_headerToken << ' ' << m_version;
    writeSettings(out, settings);
    writeModel(out, model);
    try
    {
        file->write(out.str());
        file->commit();
    }
    catch (const std::runtime_error&)
    {
        // Write errors after a successful open are not reported; the earlier file is still there.
    }
}

void KeyFrameFile::writeSettings(std::ostream& out, const Settings_s& settings) const
{
    WriteSectionStart(out, Settings);
    WriteEntry(out, AnimateTime, settings.timeOptions.animateTime);
    WriteEntry(out, TimeAnimationOperation,
               EnumMap<TimeAnimationOperation_e>::toString(settings.timeOptions.timeAnimationOperation));
    WriteEntry(out, NumCycles, settings.timeOptions.numCycles);
    WriteEntry(out, AnimateStreamtraces, settings.animateStreamtraces);
    WriteEntry(out, FadeIn, settings.fadeIn);
    WriteEntry(out, FadeOut, settings.fadeOut);
    WriteSectionMarker(out, Settings);
}

void KeyFrameFile::writeModel(std::ostream& out, const ListModelKeyFrame& model) const
{
    for (const KeyFrame_s& keyFrame : model.dataList())
    {
        const View& view = keyFrame.view;
        WriteSectionStart(out, KeyFrameView);
        WriteKey(out, Name) << " \"" << keyFrame.name << '"';
        WriteKey(out, Position) << ' ' << view.x() << ' ' << view.y() << ' ' << view.z();
        WriteKey(out, Angle) << ' ' << view.psi() << ' ' << view.theta() << ' ' << view.alpha();
        WriteEntry(out, Width, view.width());
        WriteEntry(out, FrameCount, keyFrame.frameCount);
        WriteEntry(out, SolutionTime, keyFrame.solutionTime);
        WriteSectionMarker(out, KeyFrameView);
    }
}

void KeyFrameFile::readFile(const std::string& fileName, Settings_s& settings, ListModelKeyFrame& model)
{
    std::ifstream in(fileName);
    if (!in.is_open())
        throw KeyFrameError("Unable to open file for reading.");
    UseFileLocale(in);
    readFileHeader(in);

    Settings_s workingSettings = settings;
    std::vector<KeyFrame_s> workingKeyFrames;
    std::string line;
    // An empty line here means that nothing more could be read; a last line without a line break is still
    // read as a section header.
    for (readLine(in, line, true); !line.empty(); readLine(in, line, true))
        readSection(in, line, workingSettings, workingKeyFrames);
    if (in.bad() || (in.fail() && !in.eof()))
        throwError("Error during file read.", true);

    // Copying the list is the one step of the commit that can fail, and it fails before the model changes;
    // assigning the settings cannot fail, so it comes last and a failed read changes nothing.
    model.setDataList(workingKeyFrames);
    settings = workingSettings;
}

void KeyFrameFile::readSection(std::istream& in, const std::string& line, Settings_s& settings,
                               std::vector<KeyFrame_s>& keyFrames)
{
    Section_e section = Settings;
    if (!LookUp(line, section))
        throwError("Unknown section header: " + InputExcerpt(line), true);
    if (section == Settings)
    {
        readSettings(in, settings);
        return;
    }
    KeyFrame_s keyFrame;
    readKeyFrameView(in, keyFrame.view, keyFrame.frameCount, keyFrame.name, keyFrame.solutionTime);
    keyFrames.push_back(std::move(keyFrame));
}

void KeyFrameFile::readFileHeader(std::istream& in)
{
    std::string line;
    readLine(in, line, true);
    std::istringstream header(line);
    UseFileLocale(header);
    std::string word;
    std::int32_t version = 0;
    if (!(header >> word >> version) || !CaseInsensitiveStringMatch(word, m_headerToken))
        throw KeyFrameError("Invalid file header.");
    if (version > m_version)
        throw KeyFrameError("File created with a newer version of the Key Frame add-on.");
}

void KeyFrameFile::readSettings(std::istream& in, Settings_s& settings)
{
    std::string line;
    std::istringstream entry;
    UseFileLocale(entry);
    Setting_e setting = AnimateTime;
    while (in.good() && readEntryKey(in, Settings, line, entry, setting))
        readSettingValue(entry, setting, settings);
}

template <typename Key>
bool KeyFrameFile::readEntryKey(std::istream& in, Section_e ownSection, std::string& line,
                                std::istringstream& entry, Key& key)
{
    readLine(in, line, true);
    StartEntry(entry, line);
    const std::string keyword = NextWord(entry);

    Section_e section = ownSection;
    if (LookUp(keyword, section))
    {
        if (section == ownSection)
            return false;
        throwError(ownSection == Settings ? "Missing end marker for Settings section."
                                          : "Missing end marker for KeyFrameView section.",
                   true);
    }
    if (!LookUp(keyword, key))
        throwError(ownSection == Settings ? "Unrecognized setting entry."
                                          : "Unrecognized KeyFrameItem entry.",
                   true);
    return true;
}

void KeyFrameFile::readSettingValue(std::istringstream& entry, Setting_e setting, Settings_s& settings) const
{
    switch (setting)
    {
    case AnimateTime:
        settings.timeOptions.animateTime = readBoolean(entry, setting);
        break;
    case AnimateStreamtraces:
        settings.animateStreamtraces = readBoolean(entry, setting);
        break;
    case FadeIn:
        settings.fadeIn = readBoolean(entry, setting);
        break;
    case FadeOut:
        settings.fadeOut = readBoolean(entry, setting);
        break;
    case TimeAnimationOperation:
        if (!LookUp(NextWord(entry), settings.timeOptions.timeAnimationOperation))
            throwError("Invalid value for " + EnumMap<Setting_e>::toString(setting) + " setting.", true);
        break;
    case NumCycles:
    {
        std::int32_t numCycles = 0;
        if (!(entry >> numCycles) || numCycles < 1)
            throwError("Invalid value for " + EnumMap<Setting_e>::toString(setting) + " setting." +
                           "\nValue must be an integer greater than 1.",
                       true);
        settings.timeOptions.numCycles = static_cast<std::uint64_t>(numCycles);
        break;
    }
    }
}

// Only the words themselves, in lower case, as they are written: the word must end where the value ends, so
// that "trueish" is no boolean.
bool KeyFrameFile::readBoolean(std::istringstream& entry, Setting_e setting) const
{
    const std::string word = NextWord(entry);
    if (word == "true")
        return true;
    if (word == "false")
        return false;
    throwError("Invalid value for " + EnumMap<Setting_e>::toString(setting) + " setting." +
                   "\nValue must be \"true\" or \"false\".",
               true);
}

void KeyFrameFile::readKeyFrameView(std::istream& in, View& view, std::uint64_t& frameCount,
                                    std::string& name, double& solutionTime)
{
    std::vector<double> position;
    std::vector<double> angles;
    double width = 0.0;
    std::string line;
    std::istringstream entry;
    UseFileLocale(entry);
    KeyFrameItem_e item = Name;
    while (in.good() && readEntryKey(in, KeyFrameView, line, entry, item))
    {
        switch (item)
        {
        case Name:
            name = readName(line);
            break;
        case Position:
            readValuesFromStream(entry, ValuesPerTriple, position);
            break;
        case Angle:
            readValuesFromStream(entry, ValuesPerTriple, angles);
            break;
        case Width:
            width = readWidth(entry);
            break;
        case FrameCount:
            frameCount = readFrameCount(entry);
            break;
        case SolutionTime:
            solutionTime = readSolutionTime(entry);
            break;
        }
    }

    // A view has no sensible default position or orientation: taking the origin or no turn would animate
    // towards a view that the user never captured.
    if (position.empty())
        throwError("Key frame view is missing its Position entry.", true);
    if (angles.empty())
        throwError("Key frame view is missing its Angle entry.", true);
    view.swap(View(position[0], position[1], position[2], angles[0], angles[1], angles[2], width));
}

std::string KeyFrameFile::readName(const std::string& line) const
{
    const std::string::size_type open = line.find('"');
    const std::string::size_type close = open == std::string::npos ? open : line.find('"', open + 1);
    if (close == std::string::npos)
        throwError("View name must be surrounded in quotation marks.", true);
    if (close == open + 1)
        throwError("Unable to read view name.", true);
    return line.substr(open + 1, close - open - 1);
}

double KeyFrameFile::readWidth(std::istringstream& entry) const
{
    double width = 0.0;
    if (!(entry >> width))
        throwError("Unable to read width value.", true);
    if (width > LargestWidth || width < -LargestWidth)
        throwError("Invalid width value. Width must be between -1e150 and 1e150", true);
    return width;
}

std::uint64_t KeyFrameFile::readFrameCount(std::istringstream& entry) const
{
    // Extraction into an unsigned type takes "-1" and wraps it round to the largest count, which would
    // animate practically forever; a count is never negative, so a minus sign is refused before extraction.
    entry >> std::ws;
    std::uint64_t frameCount = 0;
    if (entry.peek() == '-' || !(entry >> frameCount) || frameCount == 0)
        throwError("Invalid frameCount value.", true);
    return frameCount;
}

double KeyFrameFile::readSolutionTime(std::istringstream& entry) const
{
    double solutionTime = 0.0;
    if (!(entry >> solutionTime))
        throwError("Unable to read solution time value.", true);
    return solutionTime;
}

void KeyFrameFile::readLine(std::istream& in, std::string& line, bool skipEmptyLines)
{
    line.clear();
    m_lineBuffer.resize(LongestLine + 1);
    while (in.good())
    {
        in.getline(m_lineBuffer.data(), static_cast<std::streamsize>(m_lineBuffer.size()));
        ++m_lineNumber;
        // An error of the device (a folder instead of a file, a failing disk) rather than the end of the
        // file, or a line too long for a key frame file: what was read of the line cannot be trusted.
        const bool tooLong = in.fail() && !in.eof() && static_cast<std::size_t>(in.gcount()) == LongestLine;
        if (in.bad() || tooLong)
            throwError("Error during file read.", true);
        // The count includes the line break when there was one, that is, when the line did not end the file.
        line.assign(m_lineBuffer.data(), static_cast<std::size_t>(in.gcount()) - (in.eof() ? 0 : 1));
        boost::algorithm::trim_if(line, IsLineSpace);
        if (!skipEmptyLines || !line.empty())
            break;
    }
}

template <typename T>
void KeyFrameFile::readValuesFromStream(std::istringstream& in, std::uint64_t expectedCount,
                                        std::vector<T>& values) const
{
    std::vector<T> read;
    while (!(in >> std::ws).eof())
    {
        // The failing word is named from where its extraction began, also when the extraction consumed it
        // (a number too large for T).
        const std::istringstream::pos_type start = in.tellg();
        T value{};
        if (!(in >> value))
        {
            in.clear();
            in.seekg(start);
            throwError("Error reading item from file.\nUnable to convert input to appropriate value: " +
                           InputExcerpt(NextWord(in)),
                       true);
        }
        read.push_back(value);
    }
    if (read.size() != expectedCount)
        throwError("Mismatch between number of expected values and number of values that could be read."
                   "\nNumber of expected values: " +
                       std::to_string(expectedCount) +
                       "\nNumber of values read: " + std::to_string(read.size()),
                   true);
    values.swap(read);
}

template void KeyFrameFile::readValuesFromStream<double>(std::istringstream&, std::uint64_t,
                                                         std::vector<double>&) const;

void KeyFrameFile::throwError(const std::string& message, bool withLineNumber) const
{
    std::string text = "Error reading key frame settings file.\n\n" + message;
    if (withLineNumber && m_lineNumber != 0)
        text += "\n\nError occurred on line number " + std::to_string(m_lineNumber) + ".";
    throw KeyFrameError(text);
}

} // namespace vantix::vtxutiltools
