// A clean host with one active 3D frame for every test, checked on the way out: every lock taken was
// released and the host noticed no protocol error.
#pragma once

#include <VtxUtil.h>
#include <vantix/host/Host.h>

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
