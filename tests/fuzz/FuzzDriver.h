// The part that every fuzz program shares: seeded random choices, the edits that damage any line-oriented
// text, and the run of a program's mutants with their failure files and summary line.
//
// A fuzz program is run as "name [mutants] [seed]" (defaults: 5000 mutants, seed 1). Mutant i is made from
// the number seed + i alone (a program's valid inputs do not depend on the seed), so "name 1 S" makes again
// the one mutant reported with seed S. A failing mutant is saved in the current folder as
// name_failure_S<extension>. Besides what the program checks, every run checks that no message the program
// under test gives for an input is longer than MessageLimit characters, and, at the end, that the process's
// peak memory stayed within the bound the program states.
#pragma once

#include <cstdint>
#include <functional>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

namespace fuzz
{

// A message that quotes its input whole can flood a terminal; any reasonable message fits in this.
constexpr std::size_t MessageLimit = 400;

struct Random : std::mt19937_64
{
    using std::mt19937_64::mt19937_64;
    std::size_t below(std::size_t count)
    {
        return std::uniform_int_distribution<std::size_t>(0, count - 1)(*this);
    }
    bool oneIn(std::size_t count) { return below(count) == 0; }
    template <typename T>
    const T& pick(const std::vector<T>& choices)
    {
        return choices[below(choices.size())];
    }
};

// What a program's inputs are damaged with beyond bytes and lines: words that replace a number, lines
// inserted anywhere, and the first words of very long lines. Any list may be empty.
struct Vocabulary
{
    std::vector<std::string> extremeNumbers;
    std::vector<std::string> strayLines;
    std::vector<std::string> longLineStarts;
};

std::vector<std::string> SplitLines(const std::string& text);
std::string JoinLines(const std::vector<std::string>& lines);

// One seeded edit: a byte flipped, inserted or deleted; a line duplicated, deleted or swapped; a number
// replaced; a NUL or 0xFF byte; truncation; letters in the other case; a carriage return; a stray line; or
// (rarely, for their cost under the sanitizers) a very long line.
void Mutate(std::string& text, Random& random, const Vocabulary& vocabulary);

// A fault that a program's checks found; the driver reports it and keeps the mutant.
struct Finding : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

// What one mutant came to: accepted, or refused with the message that the code under test gave.
struct Outcome
{
    bool accepted = false;
    std::string message;
};

struct Program
{
    std::string name;
    std::string extension;
    // Each mutant is one of these, damaged by one to four edits.
    std::vector<std::string> validInputs;
    Vocabulary vocabulary;
    // The bound on the process's peak resident memory over the whole run.
    std::size_t peakMemoryMiB = 0;
    // Runs one mutant through the code under test and checks what it did; throws Finding for a fault. Any
    // other exception that leaves it is a fault as well.
    std::function<Outcome(const std::string& mutant)> check;
};

// Parses the arguments, runs the mutants (stopping after ten failures) and prints the summary; the exit
// status is 0 without failures, 1 with, 2 for bad arguments.
int Main(int argc, char** argv, const Program& program);

} // namespace fuzz
