// Host strings: the buffers add-ons get from VtxUtilStringAlloc (their macro error messages among them),
// counted until released, and the protocol errors of releasing what the host never gave out.
#include "support/HostTest.h"

#include "host/modules/MacroTestAddOn.h"

#include <VtxUtil.h>
#include <vantix/host/Host.h>
#include <vantix/host/Macro.h>

#include <string>

namespace
{

using ::testing::ElementsAre;
using ::testing::SizeIs;
using testsupport::HostTest;
using testsupport::MacroTestAddOn;

class MacroHostStringsTest : public HostTest
{
};

TEST_F(MacroHostStringsTest, AStringHasRoomForItsLengthAndItsEndAndStartsEmpty)
{
    for (const int length : {0, 1, 15, 29, 1000, 100000})
    {
        SCOPED_TRACE(length);
        char* text = VtxUtilStringAlloc(length, "test");
        ASSERT_NE(nullptr, text);
        EXPECT_EQ(1, vantix::host::outstandingHostStrings());
        for (int i = 0; i <= length; ++i)
            ASSERT_EQ('\0', text[i]) << "at " << i;
        for (int i = 0; i < length; ++i)
            text[i] = 'x';
        EXPECT_EQ(std::string(static_cast<std::size_t>(length), 'x'), text);
        VtxUtilStringDealloc(&text);
        EXPECT_EQ(nullptr, text);
        EXPECT_EQ(0, vantix::host::outstandingHostStrings());
    }
}

TEST_F(MacroHostStringsTest, OutstandingStringsAreCountedUntilReleased)
{
    char* first = VtxUtilStringAlloc(10, nullptr);
    char* second = VtxUtilStringAlloc(20, nullptr);
    char* third = VtxUtilStringAlloc(30, nullptr);
    EXPECT_EQ(3, vantix::host::outstandingHostStrings());
    VtxUtilStringDealloc(&second);
    EXPECT_EQ(2, vantix::host::outstandingHostStrings());
    VtxUtilStringDealloc(&first);
    VtxUtilStringDealloc(&third);
    EXPECT_EQ(0, vantix::host::outstandingHostStrings());
    EXPECT_EQ(3, vantix::host::callCount("VtxUtilStringAlloc"));
    EXPECT_EQ(3, vantix::host::callCount("VtxUtilStringDealloc"));
}

TEST_F(MacroHostStringsTest, ANegativeLengthGetsNoString)
{
    EXPECT_EQ(nullptr, VtxUtilStringAlloc(-1, "test"));
    EXPECT_EQ(nullptr, VtxUtilStringAlloc(-1000, "test"));
    EXPECT_EQ(0, vantix::host::outstandingHostStrings());
}

TEST_F(MacroHostStringsTest, ReleasingNothingIsFine)
{
    char* none = nullptr;
    VtxUtilStringDealloc(&none);
    VtxUtilStringDealloc(nullptr);
    EXPECT_EQ(0, vantix::host::outstandingHostStrings());
    // The fixture fails the test on any protocol error.
}

TEST_F(MacroHostStringsTest, ReleasingWhatTheHostNeverGaveOutIsAProtocolError)
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
    const auto errors = vantix::host::hostErrors();
    ASSERT_THAT(errors, SizeIs(3));
    for (const std::string& error : errors)
        EXPECT_EQ("a string was released that the host never gave out (or released already)", error);
    EXPECT_EQ(1, vantix::host::outstandingHostStrings());
    vantix::host::clearHostErrors();

    char* start = inside - 1;
    VtxUtilStringDealloc(&start);
    EXPECT_EQ(0, vantix::host::outstandingHostStrings());
}

TEST_F(MacroHostStringsTest, AStringFromBeforeAResetStaysValidButIsNoLongerCounted)
{
    char* old = VtxUtilStringAlloc(4, "test");
    ASSERT_NE(nullptr, old);
    vantix::host::reset();
    vantix::host::addFrame(PlotType_Cartesian3D);
    EXPECT_EQ(0, vantix::host::outstandingHostStrings());
    char* fresh = VtxUtilStringAlloc(4, "test");
    EXPECT_EQ(1, vantix::host::outstandingHostStrings());

    VtxUtilStringDealloc(&old);
    EXPECT_EQ(nullptr, old);
    EXPECT_EQ(1, vantix::host::outstandingHostStrings()) << "only the fresh string is counted";
    VtxUtilStringDealloc(&fresh);
    EXPECT_EQ(0, vantix::host::outstandingHostStrings());
}

TEST_F(MacroHostStringsTest, TheHostReleasesTheMessageOfAFailedAddOnCommand)
{
    const MacroTestAddOn addOn;
    const auto result =
        vantix::host::runMacroText("#!VTXMACRO 1\n"
                                   "$!ADDONCOMMAND ADDONID = 'Macro Test Add-On' COMMAND = "
                                   "'fail Key Frame Animation error:\\nUnknown macro command: Play'\n",
                                   "test.mcr");
    EXPECT_EQ("test.mcr:2: Key Frame Animation error:\nUnknown macro command: Play", result.message);
    // The add-on made the message; the host released it.
    EXPECT_EQ(1, vantix::host::callCount("VtxUtilStringAlloc"));
    EXPECT_EQ(0, vantix::host::outstandingHostStrings());
    EXPECT_THAT(addOn.received(),
                ElementsAre("fail Key Frame Animation error:\nUnknown macro command: Play"));
}

} // namespace
