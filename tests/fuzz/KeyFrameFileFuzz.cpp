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
// Usage, reproduction and the checks of every fuzz program: FuzzDriver.h.
#include "core/KeyFrameError.h"
#include "core/Settings.h"
#include "document/KeyFrameFile.h"
#include "document/ListModelKeyFrame.h"

#include "FuzzDriver.h"

#include "../support/KeyFrameExample.h"
#include "../support/TempFolder.h"

#include <algorithm>
#include <cmath>
#include <tuple>

using namespace vantix::vtxutiltools;
using fuzz::Finding;
using fuzz::Random;

namespace
{

const std::string& ExampleText = testsupport::KeyFrameExampleText;

// Written by hand: any case, tabs, blank lines, settings after the key frames, words after values, a
// section left open at the end.
const std::string HandEditedText =
    "\n#!keyframe 1 hand edited\n\n%keyframeview\n\tname \"Front\" view\n"
    "\tposition 1 2 3\n\tANGLE 10 20 30\n\twidth 2 metres\n\n%KEYFRAMEVIEW\n"
    "%Settings\n fadein true\n numcycles 3 cycles\n timeanimationoperation loop\n"
    "%Settings trailing\n%KeyFrameView\n Name \"Back\"\n Position -1 -2 -3\n"
    " Angle 0 0 0\n FrameCount 7";

// clang-format off
const fuzz::Vocabulary Vocabulary{{
    "1e308", "-1e308", "1e309", "-0", "0", "nan", "NaN", "inf", "-inf", "99999999999999999999",
    "18446744073709551615", "18446744073709551616", "2147483647", "2147483648", "-2147483649", "-1", "1e150",
    "1e151", "-1e150", "4.9e-324", "1e-400", "0x1p3", "+-1", "1e", ".", "-", "1.5.5", ""}, {
    "%Settings", "%KeyFrameView", "%settings extra", " Position 1 2", " Position 1 2 3 4", " Angle zero 0 0",
    " Name \"", " Name \"\"", " Name unquoted", " FrameCount -1", " FrameCount 0", " NumCycles 0",
    " NumCycles -5", " Width 1e151", " AnimateTime True", " TimeAnimationOperation bounce",
    " SolutionTime nan", "#!KeyFrame 2", "", " \t ", " Zoom 3"},
    {" Position", " Name \""}};
// clang-format on

const std::vector<std::string> PlainMessages{"Invalid file header.",
                                             "File created with a newer version of the Key Frame add-on.",
                                             "Unable to open file for reading."};
const std::string ReadingErrorPrefix = "Error reading key frame settings file.\n\n";
const std::string LineNumberLead = "\n\nError occurred on line number ";

// Anything from tiny to huge, with exact small values and signed zeros among them; magnitudes up to
// 10^maximumExponent.
double Number(Random& random, int maximumExponent)
{
    switch (random.below(5))
    {
    case 0:
        return static_cast<double>(static_cast<int>(random.below(2001)) - 1000);
    case 1:
        return std::uniform_real_distribution<double>(-1000.0, 1000.0)(random);
    case 2:
        return random.oneIn(2) ? 0.0 : -0.0;
    }
    const double mantissa = std::uniform_real_distribution<double>(1.0, 10.0)(random);
    const int exponent = std::uniform_int_distribution<int>(-300, maximumExponent - 1)(random);
    return (random.oneIn(2) ? -mantissa : mantissa) * std::pow(10.0, exponent);
}

// No double quote and no line break in a name, so that a saved name reads back whole.
std::string Saved(const std::filesystem::path& path, Random& random, std::size_t count)
{
    static const std::string letters = "abcdefghXYZ0123456789 _-.,()/\\#%!\t\xc3\xa9\xff";
    std::vector<KeyFrame_s> keyFrames;
    for (count = count ? count : 1 + random.below(12); keyFrames.size() < count;)
    {
        const View view(Number(random, 308), Number(random, 308), Number(random, 308), Number(random, 308),
                        Number(random, 308), Number(random, 308), Number(random, 150));
        const std::uint64_t frameCount = random.oneIn(8) ? UINT64_MAX : 1 + random.below(1000);
        const double solutionTime = Number(random, 308);
        std::string name(1 + random.below(20), ' ');
        for (char& c : name)
            c = letters[random.below(letters.size())];
        keyFrames.emplace_back(view, name, frameCount, solutionTime);
    }
    ListModelKeyFrame model;
    model.setDataList(keyFrames);
    Settings_s settings;
    settings.timeOptions = {random.oneIn(2), static_cast<TimeAnimationOperation_e>(random.below(4)),
                            random.oneIn(4) ? 2147483647 : 1 + random.below(100)};
    std::tie(settings.animateStreamtraces, settings.fadeIn, settings.fadeOut) =
        std::tuple<bool, bool, bool>{random.oneIn(2), random.oneIn(2), random.oneIn(2)};
    KeyFrameFile().saveFile(path.string(), settings, model);
    return testsupport::ReadFile(path);
}

std::vector<std::string> ValidFiles(const std::filesystem::path& folder)
{
    Random random(20240601);
    std::string crlf;
    for (const char c : ExampleText)
        crlf += c == '\n' ? std::string("\r\n") : std::string(1, c);
    std::vector<std::string> files{ExampleText, HandEditedText, crlf};
    for (const std::size_t count : {0, 0, 0, 0, 0, 0, 0, 0, 400})
        files.push_back(Saved(folder / "valid.keyframe", random, count));
    return files;
}

auto Fields(const Settings_s& s)
{
    return std::make_tuple(s.timeOptions.animateTime, s.timeOptions.timeAnimationOperation,
                           s.timeOptions.numCycles, s.destination, s.animateStreamtraces, s.fadeIn,
                           s.fadeOut);
}

// Equal to the six significant digits that a file keeps (and the few more a subnormal number loses).
bool SameToSixDigits(const KeyFrame_s& a, const KeyFrame_s& b)
{
    const auto numbers = [](const KeyFrame_s& k)
    {
        return std::vector<double>{k.view.x(),     k.view.y(),     k.view.z(),     k.view.psi(),
                                   k.view.theta(), k.view.alpha(), k.view.width(), k.solutionTime};
    };
    const auto same = [](double read, double reread)
    {
        return read == reread || std::fabs(read - reread) <= 5.0001e-6 * std::fabs(read) ||
               std::fabs(read - reread) <= 1e-310;
    };
    const std::vector<double> u = numbers(a), v = numbers(b);
    return a.name == b.name && a.frameCount == b.frameCount &&
           std::equal(u.begin(), u.end(), v.begin(), same);
}

// The list and settings that one mutant is read into, watched.
struct Document : ListModelObserverInterface
{
    Document()
    {
        model.setDataList(BaselineKeyFrames);
        model.addObserver(*this);
    }
    void modelChanged(const ListModelGenericInterface::ChangeInfo_s& change) override
    {
        changes.push_back(change.type);
    }

    // The message of the KeyFrameError that reading path throws, or "" when the read succeeds.
    std::string read(const std::filesystem::path& path)
    {
        try
        {
            KeyFrameFile().readFile(path.string(), settings, model);
        }
        catch (const KeyFrameError& error)
        {
            return error.what();
        }
        return "";
    }

    static inline const Settings_s BaselineSettings{{false, AsCaptured, 42}, ToFile, false, false, true};
    static inline const std::vector<KeyFrame_s> BaselineKeyFrames{
        KeyFrame_s(View(1, 2, 3, 4, 5, 6, 7), "Baseline A", 11, 0.5),
        KeyFrame_s(View(-1, 0, 1, 90, 45, 0, 2), "Baseline B", 3, 1.0)};
    Settings_s settings = BaselineSettings;
    ListModelKeyFrame model;
    std::vector<ListModelGenericInterface::ChangeType_e> changes;
};

void CheckRejection(const std::string& text, const std::string& message, const Document& document)
{
    if (Fields(document.settings) != Fields(Document::BaselineSettings))
        throw Finding("a failed read changed the settings");
    if (document.model.dataList() != Document::BaselineKeyFrames)
        throw Finding("a failed read changed the list");
    if (!document.changes.empty())
        throw Finding("a failed read told the list's observer of a change");
    if (std::find(PlainMessages.begin(), PlainMessages.end(), message) != PlainMessages.end())
        return;
    if (message.compare(0, ReadingErrorPrefix.size(), ReadingErrorPrefix) != 0)
        throw Finding("a message without the reading error prefix: " + message);
    const std::string::size_type lead = message.rfind(LineNumberLead);
    if (lead == std::string::npos || message.back() != '.')
        throw Finding("a reading error without a line number: " + message);
    const std::string number = message.substr(lead + LineNumberLead.size());
    const auto lines = static_cast<std::uint64_t>(std::count(text.begin(), text.end(), '\n')) + 1;
    const std::uint64_t line = std::strtoull(number.c_str(), nullptr, 10);
    if (number.find_first_not_of("0123456789") != number.size() - 1 || line == 0 || line > lines)
        throw Finding("a line number outside the file's " + std::to_string(lines) + " lines: " + message);
}

// The error that reading back a saved list must give when a key frame cannot be carried by the format:
// saved files have 10 lines of header and settings, then 9 lines per key frame, the name on the third of
// them and the frame count on the seventh.
std::string ExpectedRereadError(const std::vector<KeyFrame_s>& keyFrames)
{
    for (std::size_t i = 0; i < keyFrames.size(); ++i)
        if (keyFrames[i].name.empty() || keyFrames[i].frameCount == 0)
            return ReadingErrorPrefix +
                   (keyFrames[i].name.empty() ? "Unable to read view name." : "Invalid frameCount value.") +
                   LineNumberLead + std::to_string(11 + 9 * i + (keyFrames[i].name.empty() ? 2 : 6)) + ".";
    return "";
}

void CheckAcceptance(const std::filesystem::path& folder, const Document& document)
{
    if (document.changes != std::vector{ListModelGenericInterface::ChangeInfo_s::ModelReset})
        throw Finding("a successful read did not tell the list's observer of exactly one reset");
    if (document.settings.destination != Document::BaselineSettings.destination)
        throw Finding("a read changed the destination, which files do not hold");

    const std::filesystem::path resaved = folder / "resaved.keyframe";
    std::filesystem::remove(resaved);
    const std::vector<KeyFrame_s>& accepted = document.model.dataList();
    // An empty list is refused, without a file.
    const std::string refusal = accepted.empty() ? "No Key Frames established." : "";
    std::string saveError;
    try
    {
        KeyFrameFile().saveFile(resaved.string(), document.settings, document.model);
    }
    catch (const KeyFrameError& error)
    {
        saveError = error.what();
    }
    if (saveError != refusal || std::filesystem::exists(resaved) == accepted.empty())
        throw Finding("saving what was accepted gave: " + (saveError.empty() ? "a file" : saveError));
    if (accepted.empty())
        return;
    const std::string savedText = testsupport::ReadFile(resaved);
    Document reread;
    const std::string message = reread.read(resaved), expected = ExpectedRereadError(accepted);
    if (message != expected)
        throw Finding("reading back what was accepted gave: " + (message.empty() ? "success" : message) +
                      "\ninstead of: " + (expected.empty() ? "success" : expected));
    if (!expected.empty())
        return;
    if (Fields(reread.settings) != Fields(document.settings))
        throw Finding("settings differ after saving and reading back");
    const std::vector<KeyFrame_s>& back = reread.model.dataList();
    if (back.size() != accepted.size() ||
        !std::equal(accepted.begin(), accepted.end(), back.begin(), SameToSixDigits))
        throw Finding("key frames differ beyond six significant digits after saving and reading back");
    KeyFrameFile().saveFile(resaved.string(), reread.settings, reread.model);
    if (testsupport::ReadFile(resaved) != savedText)
        throw Finding("saving what was read back gives another text");
}

// Reads mutant; a read that fails must leave the document as it was, one that succeeds must survive saving.
fuzz::Outcome Check(const std::string& mutant, const std::filesystem::path& folder)
{
    testsupport::WriteFile(folder / "mutant.keyframe", mutant);
    Document document;
    const std::string message = document.read(folder / "mutant.keyframe");
    if (message.empty())
        CheckAcceptance(folder, document);
    else
        CheckRejection(mutant, message, document);
    return {message.empty(), message};
}

} // namespace

int main(int argc, char** argv)
{
    const testsupport::TempFolder folder("keyframe-file-fuzz");
    return fuzz::Main(argc, argv,
                      {"keyframe_file_fuzz", ".keyframe", ValidFiles(folder.path()), Vocabulary, 64,
                       [&](const std::string& mutant) { return Check(mutant, folder.path()); }});
}
