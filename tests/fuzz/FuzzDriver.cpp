#include "FuzzDriver.h"

#include "../support/TempFolder.h"

#include <sys/resource.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace fuzz
{
namespace
{

// The places where a white-space-delimited word that looks like a number starts, and its length.
std::vector<std::pair<std::size_t, std::size_t>> NumberWords(const std::string& text)
{
    const auto space = [&](std::size_t i) { return std::isspace(static_cast<unsigned char>(text[i])) != 0; };
    std::vector<std::pair<std::size_t, std::size_t>> words;
    for (std::size_t i = 0; i < text.size();)
    {
        while (i < text.size() && space(i))
            ++i;
        const std::size_t start = i;
        while (i < text.size() && !space(i))
            ++i;
        const char first = start < text.size() ? text[start] : ' ';
        if (i > start && (std::isdigit(static_cast<unsigned char>(first)) || first == '-' || first == '.'))
            words.emplace_back(start, i - start);
    }
    return words;
}

// The address sanitizer keeps freed memory in quarantine (256 MiB) and adds its shadow, so a bound set
// for the optimised build is widened by what it holds on top.
#if defined(__SANITIZE_ADDRESS__)
constexpr std::size_t SanitizerMemoryMiB = 512;
#else
constexpr std::size_t SanitizerMemoryMiB = 0;
#endif

std::size_t PeakMemoryMiB()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<std::size_t>(usage.ru_maxrss) / 1024;
}

// A message shown in the summary on one line.
std::string OneLine(std::string message)
{
    for (std::size_t at = message.find('\n'); at != std::string::npos; at = message.find('\n', at))
        message.replace(at, 1, "\\n");
    return message;
}

bool ParseCount(const char* argument, unsigned long long& value)
{
    char* end = nullptr;
    errno = 0;
    value = std::strtoull(argument, &end, 10);
    return *argument != '\0' && *argument != '-' && *end == '\0' && errno == 0;
}

// Makes mutant seed and runs it; true when it was accepted.
bool RunOne(const Program& program, std::uint64_t seed, std::string& mutant, std::string& longestMessage)
{
    Random random(seed);
    mutant = random.pick(program.validInputs);
    for (std::size_t edits = 1 + random.below(4); edits > 0; --edits)
        Mutate(mutant, random, program.vocabulary);
    const Outcome outcome = program.check(mutant);
    if (outcome.message.size() > MessageLimit)
        throw Finding("a message of " + std::to_string(outcome.message.size()) +
                      " characters: " + OneLine(outcome.message.substr(0, MessageLimit)) + "...");
    if (outcome.message.size() > longestMessage.size())
        longestMessage = outcome.message;
    return outcome.accepted;
}

} // namespace

std::vector<std::string> SplitLines(const std::string& text)
{
    std::vector<std::string> lines{""};
    for (const char c : text)
        if (c == '\n')
            lines.emplace_back();
        else
            lines.back().push_back(c);
    return lines;
}

std::string JoinLines(const std::vector<std::string>& lines)
{
    std::string text = lines.front();
    for (std::size_t i = 1; i < lines.size(); ++i)
        text += "\n" + lines[i];
    return text;
}

void Mutate(std::string& text, Random& random, const Vocabulary& vocabulary)
{
    const std::size_t position = random.below(text.size() + 1);
    const std::size_t kind = random.below(14);
    std::vector<std::string> lines = SplitLines(text);
    const std::size_t line = lines.size();
    if (kind == 0 && !text.empty())
        text[random.below(text.size())] ^= static_cast<char>(1u << random.below(8));
    else if (kind == 1)
        text.insert(position, 1, static_cast<char>(random.below(256)));
    else if (kind == 2)
        text.erase(position, 1 + random.below(8));
    else if (kind >= 3 && kind <= 5)
    {
        const std::size_t from = random.below(line), to = random.below(line);
        if (random.below(3) == 0)
            lines.insert(lines.begin() + static_cast<long>(to), lines[from]);
        else if (random.below(2) == 0 && line > 1)
            lines.erase(lines.begin() + static_cast<long>(from));
        else
            std::swap(lines[from], lines[to]);
        text = JoinLines(lines);
    }
    else if (const auto words = NumberWords(text);
             (kind == 6 || kind == 7) && !words.empty() && !vocabulary.extremeNumbers.empty())
    {
        const auto& word = random.pick(words);
        text.replace(word.first, word.second, random.pick(vocabulary.extremeNumbers));
    }
    else if (kind == 8)
        text.insert(position, 1, random.oneIn(2) ? '\0' : '\xff');
    else if (kind == 9)
        text.resize(position);
    else if (kind == 10)
        for (std::size_t i = position - std::min<std::size_t>(position, 20);
             i < std::min(text.size(), position + 20); ++i)
        {
            const auto c = static_cast<unsigned char>(text[i]);
            if (random.oneIn(2) && std::isalpha(c))
                text[i] = static_cast<char>(std::isupper(c) ? std::tolower(c) : std::toupper(c));
        }
    else if (kind == 11)
        text.insert(position, random.oneIn(2) ? "\r" : "\r\n");
    else if (kind == 12 && !vocabulary.strayLines.empty())
    {
        lines.insert(lines.begin() + static_cast<long>(random.below(line + 1)),
                     random.pick(vocabulary.strayLines));
        text = JoinLines(lines) + (random.oneIn(4) ? "\n" : "");
    }
    // A line of very many numbers, or of one long word.
    else if (kind == 13 && random.oneIn(10) && !vocabulary.longLineStarts.empty())
    {
        const std::string unit = random.oneIn(2) ? " 1" : "x";
        std::string longLine = random.pick(vocabulary.longLineStarts);
        for (std::size_t i = 0, count = 20000 + random.below(80000); i < count; ++i)
            longLine += unit;
        text.insert(position, "\n" + longLine + "\n");
    }
}

int Main(int argc, char** argv, const Program& program)
{
    unsigned long long mutants = 5000, firstSeed = 1, read = 0, accepted = 0, failures = 0;
    if (argc > 3 || (argc > 1 && !ParseCount(argv[1], mutants)) ||
        (argc > 2 && !ParseCount(argv[2], firstSeed)))
    {
        std::fprintf(stderr, "usage: %s [mutants] [seed]\n", program.name.c_str());
        return 2;
    }

    const auto start = std::chrono::steady_clock::now();
    std::string longestMessage;
    for (; read < mutants && failures < 10; ++read)
    {
        const unsigned long long seed = firstSeed + read;
        std::string mutant, finding;
        try
        {
            accepted += RunOne(program, seed, mutant, longestMessage) ? 1 : 0;
            continue;
        }
        catch (const Finding& error)
        {
            finding = error.what();
        }
        catch (const std::exception& error)
        {
            finding = "an exception the code under test does not throw: " + std::string(error.what());
        }
        catch (...)
        {
            finding = "an exception of no standard type";
        }
        ++failures;
        const std::string kept = program.name + "_failure_" + std::to_string(seed) + program.extension;
        testsupport::WriteFile(kept, mutant);
        std::fprintf(stderr, "seed %llu: %s\n  mutant saved as %s; repeat with: %s 1 %llu\n", seed,
                     finding.c_str(), kept.c_str(), program.name.c_str(), seed);
    }
    const std::size_t peak = PeakMemoryMiB(), bound = program.peakMemoryMiB + SanitizerMemoryMiB;
    if (peak > bound)
        std::fprintf(stderr, "peak memory %zu MiB is over the bound of %zu MiB\n", peak, bound);
    std::printf("%s: %llu mutants (seeds %llu to %llu), %llu accepted, %llu refused, %llu failures, %.1f s, "
                "peak memory %zu MiB (bound %zu MiB), longest message %zu characters\n",
                program.name.c_str(), read, firstSeed, firstSeed + read - 1, accepted,
                read - accepted - failures, failures,
                std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count(), peak, bound,
                longestMessage.size());
    if (!longestMessage.empty())
        std::printf("  longest message: %s\n", OneLine(longestMessage).c_str());
    return failures == 0 && peak <= bound ? 0 : 1;
}

} // namespace fuzz
