// A clean host with one active 3D frame for every test, checked on the way out: every lock taken was
// released, the host noticed no protocol error, and every host string, array, set and argument list handed
// out was released.
#pragma once

#include <VtxUtil.h>
#include <vantix/host/Events.h>
#include <vantix/host/Gui.h>
#include <vantix/host/Host.h>
#include <vantix/host/Scene.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace testsupport
{

class HostTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        vantix::host::reset();
        m_testAddOn = registeredTestAddOn();
        m_frame = vantix::host::addFrame(PlotType_Cartesian3D);
    }

    void TearDown() override
    {
        EXPECT_EQ(0, vantix::host::lockDepth(m_testAddOn));
        EXPECT_EQ(0, vantix::host::globalLockDepth());
        EXPECT_EQ(0, vantix::host::drawSuspensionDepth());
        EXPECT_THAT(vantix::host::hostErrors(), ::testing::IsEmpty());
        // Whatever the host handed out during the test was given back.
        EXPECT_EQ(0, vantix::host::outstandingHostStrings());
        EXPECT_EQ(0, vantix::host::outstandingHostArrays());
        EXPECT_EQ(0, vantix::host::outstandingSets());
        EXPECT_EQ(0, vantix::host::outstandingArgLists());
    }

    // One registration per test program, as a loaded module registers once.
    static AddOn_pa registeredTestAddOn()
    {
        static AddOn_pa addOn = VtxUtilAddOnRegister(110, "Host Tests", "1.0", "tests");
        return addOn;
    }

    AddOn_pa m_testAddOn = nullptr;
    UniqueID_t m_frame = 0;
};

} // namespace testsupport
