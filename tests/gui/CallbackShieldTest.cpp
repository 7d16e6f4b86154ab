// Whatever a dialog callback throws stays in the add-on: the user reads the add-on's own message as it
// stands, and any other failure as one line naming the callback; the host gets the callback's fallback.
#include "gui/CallbackShield.h"
#include "core/KeyFrameError.h"

#include <support/AddOnTest.h>

#include <functional>
#include <new>
#include <stdexcept>
#include <string>

using namespace vantix::vtxutiltools;
using ::testing::ElementsAre;

namespace
{

using CallbackShieldTest = testsupport::AddOnTest;

TEST_F(CallbackShieldTest, ShowsEveryFailureAsOneMessageAndAnswersTheFallback)
{
    const std::pair<std::function<void()>, std::string> cases[] = {
        {[] { throw KeyFrameError("Animation canceled."); }, "Animation canceled."},
        {[] { throw std::out_of_range("No such entry in the list."); },
         "Internal error of the Key Frame Animation add-on in open_CB: No such entry in the list."},
        {[] { throw std::bad_alloc(); },
         "Internal error of the Key Frame Animation add-on in open_CB: not enough memory."},
        {[] { throw 42; }, "Internal error of the Key Frame Animation add-on in open_CB."},
    };
    for (const auto& [fail, message] : cases)
    {
        vantix::host::clearUserMessages();
        EXPECT_EQ(7, RunShielded("open_CB", 7,
                                 [&fail]
                                 {
                                     fail();
                                     return 1;
                                 }));
        EXPECT_THAT(vantix::host::errorMessages(), ElementsAre(message));
    }
}

} // namespace
