// The case-insensitive comparison under every text table: ordering, matching, and the ordering object.
#include "core/CaseInsensitive.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

using namespace vantix::vtxutiltools;

TEST(CaseInsensitiveStringLessTest, OrdersByTheLowerCasedBytes)
{
    const struct
    {
        std::string a;
        std::string b;
        bool less;
    } cases[] = {
        {"abc", "ABD", true},
        {"", "a", true},
        {"ABC", "abc", false},
        {"abc", "ABC", false},
        {"a", "", false},
        {"", "", false},
        {"Animate", "AnimateTime", true},
        {"AnimateTime", "Animate", false},
        {"ANIMATE", "animatetime", true},
        {"abd", "ABC", false},
        // Letters of different case: 'a' comes after 'B' as bytes, but before it ignoring case.
        {"a", "B", true},
        {"B", "a", false},
        // Between the upper- and the lower-case letters: lower-casing, not upper-casing, puts them first.
        {"_", "a", true},
        {"[", "A", true},
        {"A", "_", false},
        // Characters 32 apart that are not letters stay different.
        {"@", "`", true},
        {"`", "@", false},
        {"[", "{", true},
        // Bytes above 127 come after every ASCII character.
        {"z", "\xc3\xa9", true},
        {"\xc3\xa9", "z", false},
        // Blanks count.
        {"To File", "ToFile", true},
        {"ToFile", "ToFile ", true},
    };
    for (const auto& c : cases)
        EXPECT_EQ(c.less, CaseInsensitiveStringLess(c.a, c.b)) << '"' << c.a << "\" < \"" << c.b << '"';
}

TEST(CaseInsensitiveStringMatchTest, MatchesTextsOfOneLengthThatDifferOnlyInCase)
{
    const struct
    {
        std::string a;
        std::string b;
        bool match;
    } cases[] = {
        {"#!keyframe", "#!KeyFrame", true},
        {"#!KEYFRAME", "#!KeyFrame", true},
        {"#!KeyFrame", "#!KeyFrame", true},
        {"", "", true},
        {"#!KeyFram", "#!KeyFrame", false},
        {"#!KeyFrame", "#!KeyFram", false},
        {"#!KeyFrame ", "#!KeyFrame", false},
        {"a", "", false},
        {"", "a", false},
        {"a b", "A B", true},
        {"a_b", "A_B", true},
        {"@", "`", false},
        {"[", "{", false},
        {"\xc3\xa9", "\xc3\x89", false},
        {"#!KeyFrane", "#!KeyFrame", false},
    };
    for (const auto& c : cases)
        EXPECT_EQ(c.match, CaseInsensitiveStringMatch(c.a, c.b)) << '"' << c.a << "\" ~ \"" << c.b << '"';
}

TEST(CaseInsensitiveStringCompareObjTest, KeepsOneOfTextsThatDifferOnlyInCaseInAnOrderedSet)
{
    const std::set<std::string, CaseInsensitiveStringCompareObj> words = {"Loop", "LOOP",   "bounce",
                                                                          "loop", "Bounce", "AsCaptured"};
    EXPECT_EQ((std::set<std::string>{"AsCaptured", "bounce", "Loop"}),
              std::set<std::string>(words.begin(), words.end()));
    EXPECT_EQ(1u, words.count("BOUNCE"));
    EXPECT_EQ(0u, words.count("Loop "));
}
