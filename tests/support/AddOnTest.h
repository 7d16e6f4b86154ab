// The add-on registered with a clean host holding one active 3D frame, as after the module was loaded;
// checked on the way out like every host test, with the add-on's own lock depth too.
#pragma once

#include "HostTest.h"

#include "platform/AddOnID.h"

extern "C" void InitVtxAddOn113();

namespace testsupport
{

class AddOnTest : public HostTest
{
protected:
    void SetUp() override
    {
        HostTest::SetUp();
        static const bool loaded = (InitVtxAddOn113(), true);
        (void)loaded;
    }

    void TearDown() override
    {
        EXPECT_EQ(0, vantix::host::lockDepth(vantix::vtxutiltools::AddOnID));
        HostTest::TearDown();
    }
};

} // namespace testsupport
