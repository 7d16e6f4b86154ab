// Host strings: the buffers add-ons get from VtxUtilStringAlloc, counted until released, and the protocol
// errors of releasing what the host never gave out. That the host releases the error messages add-ons make
// with them is checked with the failing macro commands (MacroCommandTest).
#include "support/HostTest.h"

#include <algorithm>

namespace
{

namespace host = vantix::host;
using ::testing::ElementsAre;

class MacroHostStringsTest : public testsupport::HostTest
{
};

TEST_F(MacroHostStringsTest, AStringHasRoomForItsLengthAndItsEndStartsEmptyAndIsCountedUntilReleased)
{
    const std::vector<int> lengths = {0, 1, 15, 29, 1000, 100000};
    std::vector<char*> texts;
    for (const int length : lengths)
    {
        SCOPED_TRACE(length);
        texts.push_back(VtxUtilStringAlloc(length, length % 2 ? "test" : nullptr));
        ASSERT_NE(nullptr, texts.back());
        EXPECT_EQ(long(texts.size()), host::outstandingHostStrings());
        EXPECT_EQ(std::string(length + 1, '\0'), std::string(texts.back(), length + 1));
        std::fill_n(texts.back(), length, 'x');
        EXPECT_EQ(std::string(length, 'x'), texts.back());
    }
    EXPECT_EQ(nullptr, VtxUtilStringAlloc(-1, "test"));
    EXPECT_EQ(nullptr, VtxUtilStringAlloc(-1000, "test"));
    for (std::size_t i = 0; i < texts.size(); ++i)
    {
        VtxUtilStringDealloc(&texts[(i + 3) % texts.size()]);
        EXPECT_EQ(nullptr, texts[(i + 3) % texts.size()]);
        EXPECT_EQ(long(texts.size() - i - 1), host::outstandingHostStrings());
    }
    EXPECT_EQ(8, host::callCount("VtxUtilStringAlloc"));
    EXPECT_EQ(6, host::callCount("VtxUtilStringDealloc"));
}

TEST_F(MacroHostStringsTest, ReleasingWhatTheHostNeverGaveOutIsAProtocolErrorAndNothingIsFine)
{
    char own[] = "mine";
    char* notTheHosts = own;
    char* text = VtxUtilStringAlloc(5, "test");
    char* again = text;
    VtxUtilStringDealloc(&text);
    VtxUtilStringDealloc(&again);       // released already
    VtxUtilStringDealloc(&notTheHosts); // never the host's
    char* const inside = VtxUtilStringAlloc(8, "test") + 1;
    char* insideCopy = inside;
    VtxUtilStringDealloc(&insideCopy); // not the start of a host string
    EXPECT_EQ(own, notTheHosts) << "the pointer is left to its owner";
    EXPECT_EQ(inside, insideCopy);
    const std::string error = "a string was released that the host never gave out (or released already)";
    EXPECT_THAT(host::hostErrors(), ElementsAre(error, error, error));
    host::clearHostErrors();
    char* none = nullptr;
    VtxUtilStringDealloc(&none);
    VtxUtilStringDealloc(nullptr);
    EXPECT_EQ(1, host::outstandingHostStrings());

    // A string from before a reset stays valid but is no longer counted.
    host::reset();
    EXPECT_EQ(0, host::outstandingHostStrings());
    char* fresh = VtxUtilStringAlloc(4, "test");
    char* old = inside - 1;
    VtxUtilStringDealloc(&old);
    EXPECT_EQ(nullptr, old);
    EXPECT_EQ(1, host::outstandingHostStrings()) << "only the fresh string is counted";
    VtxUtilStringDealloc(&fresh);
}

} // namespace
