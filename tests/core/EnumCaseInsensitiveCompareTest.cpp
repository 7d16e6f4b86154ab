// The case-insensitive comparison under every text table: ordering and matching. The ordering object keys
// the tables' maps: see ReverseMapTest.
#include "core/CaseInsensitive.h"

#include <gtest/gtest.h>

#include <string>

using namespace vantix::vtxutiltools;

TEST(CaseInsensitiveStringTest, OrdersAndMatchesByTheLowerCasedBytes)
{
    // order: -1 when a comes first, 1 when b does, 0 when they match.
    const struct
    {
        std::string a, b;
        int order;
    } cases[] = {
        // clang-format off
        {"abc", "ABD", -1}, {"abd", "ABC", 1}, {"", "", 0}, {"#!KEYFRAME", "#!keyframe", 0},
        {"a_b", "A_B", 0},
        // A proper prefix comes first.
        {"", "a", -1}, {"ANIMATE", "animatetime", -1}, {"#!KeyFrame ", "#!KeyFrame", 1},
        // Letters of different case: 'a' comes after 'B' as bytes, but before it ignoring case.
        {"a", "B", -1},
        // Between the upper- and the lower-case letters: lower-casing, not upper-casing, puts them first.
        {"_", "a", -1}, {"[", "A", -1},
        // Characters 32 apart that are not letters stay different, and so do letters beyond ASCII.
        {"@", "`", -1}, {"[", "{", -1}, {"\xc3\x89", "\xc3\xa9", -1},
        // Bytes above 127 come after every ASCII character.
        {"z", "\xc3\xa9", -1},
        // clang-format on
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE('"' + c.a + "\" and \"" + c.b + '"');
        EXPECT_EQ(c.order < 0, CaseInsensitiveStringLess(c.a, c.b));
        EXPECT_EQ(c.order > 0, CaseInsensitiveStringLess(c.b, c.a));
        EXPECT_EQ(c.order == 0, CaseInsensitiveStringMatch(c.a, c.b));
        EXPECT_EQ(c.order == 0, CaseInsensitiveStringMatch(c.b, c.a));
    }
}
