// Reads thousands of damaged key frame files. Each mutant is a valid file (the documented example, files
// that saveFile wrote from seeded random content, a file of many key frames, a hand-edited file) damaged by
// a few seeded random edits: bytes flipped, inserted or deleted, lines duplicated, deleted or swapped,
// numbers replaced by extremes, NUL and 0xFF bytes, truncation, keywords in other case, carriage returns,
// stray keyword lines and very long lines.
//
// Every read must either succeed or throw KeyFrameError. After a failed read the settings and the list
// must be as they were and the list's observer must have heard nothing; the message must be one of the
// plain header and open messages, or a reading error naming a line of the file. After a successful read
// the list's observer hears one reset, and what was accepted must survive saving: saving it and reading it
// back gives the same settings and key frames to six significant digits, and saving that again gives the
// same text. The only key frames that the format cannot carry back are those without a name or without a
// frame count; for them the reading error of exactly that line is expected instead.
//
// Usage: keyframe_file_fuzz [mutants] [seed]   (defaults: 5000 mutants, seed 1)
// Mutant i is made from the number seed + i alone (the valid files do not depend on the seed), so
// "keyframe_file_fuzz 1 S" makes again the one mutant reported with seed S. A failing mutant is saved in
// the current folder as keyframe_file_fuzz_failure_S.keyframe.
#include "core/KeyFrame.h"
#include "core/KeyFrameError.h"
#include "core/Settings.h"
#include "core/View.h"
#include "document/KeyFrameFile.h"
#include "document/ListModelKeyFrame.h"
#include "model/ListModelGenericInterface.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

using namespace vantix::vtxutiltools;

namespace
{

using Random = std::mt19937_64;

const std::string ExampleText =
    "#!KeyFrame 1\n\n%Settings\n AnimateTime true\n TimeAnimationOperation Forward\n"
    " NumCycles 1\n AnimateStreamtraces false\n FadeIn false\n FadeOut false\n%Settings\n"
    "\n%KeyFrameView\n Name \"View 1\"\n Position 12.3457 -4.5 30\n"
    " Angle 123.457 57.2958 0\n Width 1.75\n FrameCount 20\n SolutionTime 0\n"
    "%KeyFrameView\n\n%KeyFrameView\n Name \"View 2\"\n Position 18.5 40 -130\n"
    " Angle 35.2644 0 0\n Width 0.0001\n FrameCount 1\n SolutionTime 2.5e-05\n"
    "%KeyFrameView";

// Written by hand: any case, tabs, blank lines, settings after the key frames, words after values, a
// section left open at the end.
const std::string HandEditedText =
    "\n#!keyframe 1 hand edited\n\n%keyframeview\n\tname \"Front\" view\n"
    "\tposition 1 2 3\n\tANGLE 10 20 30\n\twidth 2 metres\n\n%KEYFRAMEVIEW\n"
    "%Settings\n fadein true\n numcycles 3 cycles\n timeanimationoperation loop\n"
    "%Settings trailing\n%KeyFrameView\n Name \"Back\"\n Position -1 -2 -3\n"
    " Angle 0 0 0\n FrameCount 7";

const std::vector<std::string> ExtremeNumbers{"1e308",
                                              "-1e308",
                                              "1e309",
                                              "-0",
                                              "0",
                                              "nan",
                                              "NaN",
                                              "inf",
                                              "-inf",
                                              "99999999999999999999",
                                              "18446744073709551615",
                                              "18446744073709551616",
                                              "2147483647",
                                              "2147483648",
                                              "-2147483649",
                                              "-1",
                                              "1e150",
                                              "1e151",
                                              "-1e150",
                                              "4.9e-324",
                                              "1e-400",
                                              "0x1p3",
                                              "+-1",
                                              "1e",
                                              ".",
                                              "-",
                                              "1.5.5",
                                              ""};

const std::vector<std::string> StrayLines{"%Settings",
                                          "%KeyFrameView",
                                          "%settings extra",
                                          " Position 1 2",
                                          " Position 1 2 3 4",
                                          " Angle zero 0 0",
                                          " Name \"",
                                          " Name \"\"",
                                          " Name unquoted",
                                          " FrameCount -1",
                                          " FrameCount 0",
                                          " NumCycles 0",
                                          " NumCycles -5",
                                          " Width 1e151",
                                          " AnimateTime True",
                                          " TimeAnimationOperation bounce",
                                          " SolutionTime nan",
                                          "#!KeyFrame 2",
                                          "",
                                          " \t ",
                                          " Zoom 3"};

const std::vector<std::string> PlainMessages{"Invalid file header.",
                                             "File created with a newer version of the Key Frame add-on.",
                                             "Unable to open file for reading."};

const std::string ReadingErrorPrefix = "Error reading key frame settings file.\n\n";
const std::string LineNumberLead = "\n\nError occurred on line number ";

// A failure of the reader that the run reports, with the mutant kept for reproduction.
struct Finding : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

std::size_t Below(Random& random, std::size_t count)
{
    return std::uniform_int_distribution<std::size_t>(0, count - 1)(random);
}

bool OneIn(Random& random, std::size_t count)
{
    return Below(random, count) == 0;
}

template <typename T>
const T& Pick(Random& random, const std::vector<T>& choices)
{
    return choices[Below(random, choices.size())];
}

// Anything from tiny to huge, with exact small values and signed zeros among them; magnitudes up to
// 10^maximumExponent.
double RandomNumber(Random& random, int maximumExponent)
{
    switch (Below(random, 5))
    {
    case 0:
        return static_cast<double>(static_cast<int>(Below(random, 2001)) - 1000);
    case 1:
        return std::uniform_real_distribution<double>(-1000.0, 1000.0)(random);
    case 2:
        return OneIn(random, 2) ? 0.0 : -0.0;
    default:
    {
        const double mantissa = std::uniform_real_distribution<double>(1.0, 10.0)(random);
        const int exponent = std::uniform_int_distribution<int>(-300, maximumExponent - 1)(random);
        return (OneIn(random, 2) ? -mantissa : mantissa) * std::pow(10.0, exponent);
    }
    }
}

// No double quote and no line break, so that a saved name reads back whole.
std::string RandomName(Random& random)
{
    static const std::string letters = "abcdefghXYZ0123456789 _-.,()/\\#%!\t\xc3\xa9\xff";
    std::string name(1 + Below(random, 20), ' ');
    for (char& c : name)
        c = letters[Below(random, letters.size())];
    return name;
}

Settings_s RandomSettings(Random& random)
{
    Settings_s settings;
    settings.timeOptions.animateTime = OneIn(random, 2);
    settings.timeOptions.timeAnimationOperation = static_cast<TimeAnimationOperation_e>(Below(random, 4));
    settings.timeOptions.numCycles = OneIn(random, 4) ? 2147483647 : 1 + Below(random, 100);
    settings.animateStreamtraces = OneIn(random, 2);
    settings.fadeIn = OneIn(random, 2);
    settings.fadeOut = OneIn(random, 2);
    return settings;
}

std::vector<KeyFrame_s> RandomKeyFrames(Random& random, std::size_t count)
{
    std::vector<KeyFrame_s> keyFrames;
    for (std::size_t i = 0; i < count; ++i)
    {
        const View view(RandomNumber(random, 308), RandomNumber(random, 308), RandomNumber(random, 308),
                        RandomNumber(random, 308), RandomNumber(random, 308), RandomNumber(random, 308),
                        RandomNumber(random, 150));
        const std::uint64_t frameCount = OneIn(random, 8) ? UINT64_MAX : 1 + Below(random, 1000);
        keyFrames.emplace_back(view, RandomName(random), frameCount, RandomNumber(random, 308));
    }
    return keyFrames;
}

std::string ReadText(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

void WriteText(const std::filesystem::path& path, const std::string& text)
{
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file << text;
    if (!file.flush())
        throw std::runtime_error("cannot write " + path.string());
}

std::string Saved(const std::filesystem::path& path, const Settings_s& settings,
                  const std::vector<KeyFrame_s>& keyFrames)
{
    ListModelKeyFrame model;
    model.setDataList(keyFrames);
    KeyFrameFile().saveFile(path.string(), settings, model);
    return ReadText(path);
}

std::vector<std::string> ValidFiles(const std::filesystem::path& folder)
{
    Random random(20240601);
    const std::filesystem::path path = folder / "valid.keyframe";
    std::vector<std::string> files{ExampleText, HandEditedText};
    std::string crlf;
    for (const char c : ExampleText)
        crlf += c == '\n' ? std::string("\r\n") : std::string(1, c);
    files.push_back(crlf);
    for (int i = 0; i < 8; ++i)
        files.push_back(Saved(path, RandomSettings(random), RandomKeyFrames(random, 1 + Below(random, 12))));
    files.push_back(Saved(path, RandomSettings(random), RandomKeyFrames(random, 400)));
    return files;
}

std::vector<std::string> SplitLines(const std::string& text)
{
    std::vector<std::string> lines;
    std::string::size_type start = 0;
    for (std::string::size_type end = text.find('\n'); end != std::string::npos; end = text.find('\n', start))
    {
        lines.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    lines.push_back(text.substr(start));
    return lines;
}

std::string JoinLines(const std::vector<std::string>& lines)
{
    std::string text;
    for (std::size_t i = 0; i < lines.size(); ++i)
        text += (i == 0 ? "" : "\n") + lines[i];
    return text;
}

// The places where a white-space-delimited word that looks like a number starts, and its length.
std::vector<std::pair<std::size_t, std::size_t>> NumberWords(const std::string& text)
{
    std::vector<std::pair<std::size_t, std::size_t>> words;
    std::size_t i = 0;
    while (i < text.size())
    {
        while (i < text.size() && std::isspace(static_cast<unsigned char>(text[i])))
            ++i;
        const std::size_t start = i;
        while (i < text.size() && !std::isspace(static_cast<unsigned char>(text[i])))
            ++i;
        const char first = start < text.size() ? text[start] : ' ';
        if (i > start && (std::isdigit(static_cast<unsigned char>(first)) || first == '-' || first == '.'))
            words.emplace_back(start, i - start);
    }
    return words;
}

void Mutate(std::string& text, Random& random)
{
    const std::size_t position = Below(random, text.size() + 1);
    switch (Below(random, 14))
    {
    case 0:
        if (!text.empty())
            text[Below(random, text.size())] ^= static_cast<char>(1u << Below(random, 8));
        break;
    case 1:
        text.insert(position, 1, static_cast<char>(Below(random, 256)));
        break;
    case 2:
        text.erase(position, 1 + Below(random, 8));
        break;
    case 3:
    case 4:
    case 5:
    {
        std::vector<std::string> lines = SplitLines(text);
        const std::size_t line = Below(random, lines.size());
        const std::size_t other = Below(random, lines.size());
        if (Below(random, 3) == 0)
            lines.insert(lines.begin() + static_cast<long>(other), lines[line]);
        else if (Below(random, 2) == 0 && lines.size() > 1)
            lines.erase(lines.begin() + static_cast<long>(line));
        else
            std::swap(lines[line], lines[other]);
        text = JoinLines(lines);
        break;
    }
    case 6:
    case 7:
    {
        const auto words = NumberWords(text);
        if (!words.empty())
        {
            const auto& word = Pick(random, words);
            text.replace(word.first, word.second, Pick(random, ExtremeNumbers));
        }
        break;
    }
    case 8:
        text.insert(position, 1, OneIn(random, 2) ? '\0' : '\xff');
        break;
    case 9:
        text.resize(position);
        break;
    case 10:
    {
        const std::size_t start = position - std::min(position, std::size_t{20});
        for (std::size_t i = start; i < std::min(text.size(), position + 20); ++i)
        {
            if (OneIn(random, 2) && std::isalpha(static_cast<unsigned char>(text[i])))
                text[i] = static_cast<char>(std::isupper(static_cast<unsigned char>(text[i]))
                                                ? std::tolower(static_cast<unsigned char>(text[i]))
                                                : std::toupper(static_cast<unsigned char>(text[i])));
        }
        break;
    }
    case 11:
        text.insert(position, OneIn(random, 2) ? "\r" : "\r\n");
        break;
    case 12:
    {
        std::vector<std::string> lines = SplitLines(text);
        lines.insert(lines.begin() + static_cast<long>(Below(random, lines.size() + 1)),
                     Pick(random, StrayLines));
        text = JoinLines(lines);
        if (OneIn(random, 4))
            text += '\n';
        break;
    }
    case 13:
        // Rare, for their cost under the sanitizers: a line of very many numbers, or of one long word.
        if (OneIn(random, 10))
        {
            const std::string unit = OneIn(random, 2) ? " 1" : "x";
            std::string line = OneIn(random, 2) ? " Position" : " Name \"";
            for (std::size_t i = 0, count = 20000 + Below(random, 80000); i < count; ++i)
                line += unit;
            text.insert(position, "\n" + line + "\n");
        }
        break;
    }
}

Settings_s BaselineSettings()
{
    Settings_s settings;
    settings.timeOptions.timeAnimationOperation = AsCaptured;
    settings.timeOptions.numCycles = 42;
    settings.destination = ToFile;
    settings.fadeOut = true;
    return settings;
}

const std::vector<KeyFrame_s>& BaselineKeyFrames()
{
    static const std::vector<KeyFrame_s> keyFrames{
        KeyFrame_s(View(1, 2, 3, 4, 5, 6, 7), "Baseline A", 11, 0.5),
        KeyFrame_s(View(-1, 0, 1, 90, 45, 0, 2), "Baseline B", 3, 1.0)};
    return keyFrames;
}

bool SameSettings(const Settings_s& a, const Settings_s& b)
{
    return a.timeOptions.animateTime == b.timeOptions.animateTime &&
           a.timeOptions.timeAnimationOperation == b.timeOptions.timeAnimationOperation &&
           a.timeOptions.numCycles == b.timeOptions.numCycles && a.destination == b.destination &&
           a.animateStreamtraces == b.animateStreamtraces && a.fadeIn == b.fadeIn && a.fadeOut == b.fadeOut;
}

// Equal to the six significant digits that a file keeps (and the few more a subnormal number loses).
bool SixDigitsEqual(double read, double reread)
{
    return read == reread || std::fabs(read - reread) <= 5.0001e-6 * std::fabs(read) ||
           std::fabs(read - reread) <= 1e-310;
}

bool SameToSixDigits(const KeyFrame_s& a, const KeyFrame_s& b)
{
    const View& u = a.view;
    const View& v = b.view;
    return a.name == b.name && a.frameCount == b.frameCount &&
           SixDigitsEqual(a.solutionTime, b.solutionTime) && SixDigitsEqual(u.x(), v.x()) &&
           SixDigitsEqual(u.y(), v.y()) && SixDigitsEqual(u.z(), v.z()) && SixDigitsEqual(u.psi(), v.psi()) &&
           SixDigitsEqual(u.theta(), v.theta()) && SixDigitsEqual(u.alpha(), v.alpha()) &&
           SixDigitsEqual(u.width(), v.width());
}

class ChangeRecorder : public ListModelObserverInterface
{
public:
    void modelChanged(const ListModelGenericInterface::ChangeInfo_s& change) override
    {
        types.push_back(change.type);
    }
    std::vector<ListModelGenericInterface::ChangeType_e> types;
};

// The list and settings that one mutant is read into, watched.
struct Document
{
    Document()
    {
        model.setDataList(BaselineKeyFrames());
        model.addObserver(recorder);
    }
    ~Document() { model.removeObserver(recorder); }
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    Settings_s settings = BaselineSettings();
    ListModelKeyFrame model;
    ChangeRecorder recorder;
};

// The message of the KeyFrameError that reading path throws, or nothing when the read succeeds; any
// other exception is a finding.
std::pair<bool, std::string> Read(const std::filesystem::path& path, Document& document)
{
    try
    {
        KeyFrameFile().readFile(path.string(), document.settings, document.model);
        return {true, ""};
    }
    catch (const KeyFrameError& error)
    {
        return {false, error.what()};
    }
    catch (const std::exception& error)
    {
        throw Finding(std::string("an exception other than KeyFrameError: ") + error.what());
    }
    catch (...)
    {
        throw Finding("an exception of no standard type");
    }
}

void CheckRejection(const std::string& text, const std::string& message, const Document& document)
{
    if (!SameSettings(document.settings, BaselineSettings()))
        throw Finding("a failed read changed the settings");
    if (document.model.dataList() != BaselineKeyFrames())
        throw Finding("a failed read changed the list");
    if (!document.recorder.types.empty())
        throw Finding("a failed read told the list's observer of a change");
    if (std::find(PlainMessages.begin(), PlainMessages.end(), message) != PlainMessages.end())
        return;
    if (message.compare(0, ReadingErrorPrefix.size(), ReadingErrorPrefix) != 0)
        throw Finding("a message without the reading error prefix: " + message);
    const std::string::size_type lead = message.rfind(LineNumberLead);
    if (lead == std::string::npos || message.back() != '.')
        throw Finding("a reading error without a line number: " + message);
    const std::string number =
        message.substr(lead + LineNumberLead.size(), message.size() - 1 - lead - LineNumberLead.size());
    const std::uint64_t lineCount =
        static_cast<std::uint64_t>(std::count(text.begin(), text.end(), '\n')) + 1;
    const std::uint64_t line = std::strtoull(number.c_str(), nullptr, 10);
    if (number.find_first_not_of("0123456789") != std::string::npos || line == 0 || line > lineCount)
        throw Finding("a line number outside the file's " + std::to_string(lineCount) + " lines: " + message);
}

// The error that reading back a saved list must give when a key frame cannot be carried by the format:
// saved files have 10 lines of header and settings, then 9 lines per key frame, the name on the third of
// them and the frame count on the seventh.
std::string ExpectedRereadError(const std::vector<KeyFrame_s>& keyFrames)
{
    for (std::size_t i = 0; i < keyFrames.size(); ++i)
    {
        const std::size_t firstLine = 11 + 9 * i;
        if (keyFrames[i].name.empty())
            return ReadingErrorPrefix + "Unable to read view name." + LineNumberLead +
                   std::to_string(firstLine + 2) + ".";
        if (keyFrames[i].frameCount == 0)
            return ReadingErrorPrefix + "Invalid frameCount value." + LineNumberLead +
                   std::to_string(firstLine + 6) + ".";
    }
    return "";
}

void CheckAcceptance(const std::filesystem::path& folder, const Document& document)
{
    if (document.recorder.types != std::vector<ListModelGenericInterface::ChangeType_e>{
                                       ListModelGenericInterface::ChangeInfo_s::ModelReset})
        throw Finding("a successful read did not tell the list's observer of exactly one reset");
    if (document.settings.destination != BaselineSettings().destination)
        throw Finding("a read changed the destination, which files do not hold");

    const std::filesystem::path resaved = folder / "resaved.keyframe";
    std::filesystem::remove(resaved);
    const std::vector<KeyFrame_s>& accepted = document.model.dataList();
    if (accepted.empty())
    {
        try
        {
            KeyFrameFile().saveFile(resaved.string(), document.settings, document.model);
        }
        catch (const KeyFrameError& error)
        {
            if (std::string(error.what()) != "No Key Frames established." || std::filesystem::exists(resaved))
                throw Finding(std::string("saving an empty list: ") + error.what());
            return;
        }
        throw Finding("saving an empty list succeeded");
    }

    KeyFrameFile().saveFile(resaved.string(), document.settings, document.model);
    const std::string savedText = ReadText(resaved);
    Document reread;
    const auto [succeeded, message] = Read(resaved, reread);
    const std::string expectedError = ExpectedRereadError(accepted);
    if (!expectedError.empty())
    {
        if (succeeded || message != expectedError)
            throw Finding("reading back a list the format cannot carry gave: " +
                          (succeeded ? std::string("success") : message) + "\ninstead of: " + expectedError);
        return;
    }
    if (!succeeded)
        throw Finding("a saved file of accepted content does not read back: " + message);
    if (!SameSettings(reread.settings, document.settings))
        throw Finding("settings differ after saving and reading back");
    const std::vector<KeyFrame_s>& back = reread.model.dataList();
    if (back.size() != accepted.size() ||
        !std::equal(accepted.begin(), accepted.end(), back.begin(), SameToSixDigits))
        throw Finding("key frames differ beyond six significant digits after saving and reading back");
    KeyFrameFile().saveFile(resaved.string(), reread.settings, reread.model);
    if (ReadText(resaved) != savedText)
        throw Finding("saving what was read back gives another text");
}

// Makes mutant seed from a valid file and reads it; true when the read succeeded.
bool Run(std::uint64_t seed, const std::vector<std::string>& validFiles, const std::filesystem::path& folder,
         std::string& mutant)
{
    Random random(seed);
    mutant = Pick(random, validFiles);
    for (std::size_t edits = 1 + Below(random, 4); edits > 0; --edits)
        Mutate(mutant, random);

    const std::filesystem::path path = folder / "mutant.keyframe";
    WriteText(path, mutant);
    Document document;
    const auto [succeeded, message] = Read(path, document);
    if (succeeded)
        CheckAcceptance(folder, document);
    else
        CheckRejection(mutant, message, document);
    return succeeded;
}

std::filesystem::path MakeWorkFolder()
{
    std::string pattern = (std::filesystem::temp_directory_path() / "keyframe-file-fuzz-XXXXXX").string();
    if (!mkdtemp(pattern.data()))
        throw std::runtime_error("cannot make a work folder");
    return pattern;
}

bool ParseCount(const char* text, std::uint64_t& value)
{
    char* end = nullptr;
    errno = 0;
    value = std::strtoull(text, &end, 10);
    return *text != '\0' && *text != '-' && *end == '\0' && errno == 0;
}

} // namespace

int main(int argc, char** argv)
{
    std::uint64_t mutants = 5000;
    std::uint64_t firstSeed = 1;
    if (argc > 3 || (argc > 1 && !ParseCount(argv[1], mutants)) ||
        (argc > 2 && !ParseCount(argv[2], firstSeed)))
    {
        std::fprintf(stderr, "usage: keyframe_file_fuzz [mutants] [seed]\n");
        return 2;
    }

    const auto start = std::chrono::steady_clock::now();
    const std::filesystem::path folder = MakeWorkFolder();
    const std::vector<std::string> validFiles = ValidFiles(folder);
    std::uint64_t read = 0;
    std::uint64_t accepted = 0;
    std::uint64_t failures = 0;
    for (; read < mutants && failures < 10; ++read)
    {
        const std::uint64_t seed = firstSeed + read;
        std::string mutant;
        try
        {
            accepted += Run(seed, validFiles, folder, mutant) ? 1 : 0;
        }
        catch (const std::exception& finding)
        {
            ++failures;
            const std::string kept = "keyframe_file_fuzz_failure_" + std::to_string(seed) + ".keyframe";
            WriteText(kept, mutant);
            std::fprintf(stderr,
                         "seed %llu: %s\n  mutant saved as %s; repeat with: keyframe_file_fuzz 1 %llu\n",
                         static_cast<unsigned long long>(seed), finding.what(), kept.c_str(),
                         static_cast<unsigned long long>(seed));
        }
    }
    std::filesystem::remove_all(folder);

    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    std::printf("keyframe_file_fuzz: %llu mutants (seeds %llu to %llu), %llu accepted, %llu rejected, %llu "
                "failures, %.1f s\n",
                static_cast<unsigned long long>(read), static_cast<unsigned long long>(firstSeed),
                static_cast<unsigned long long>(firstSeed + read - 1),
                static_cast<unsigned long long>(accepted),
                static_cast<unsigned long long>(read - accepted - failures),
                static_cast<unsigned long long>(failures), seconds);
    return failures == 0 ? 0 : 1;
}
