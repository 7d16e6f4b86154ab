// The built add-on module loads like the host loads it: dlopen, look up the plain entry point, call it.
#include "support/HostTest.h"

#include <algorithm>
#include <dlfcn.h>

namespace
{

using ModuleLoadTest = testsupport::HostTest;

TEST_F(ModuleLoadTest, TheModuleExportsOnlyItsEntryPointWhichRegistersTheAddOn)
{
    void* module = dlopen(KEYFRAME_MODULE_PATH, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(nullptr, module) << dlerror();

    using EntryPoint = void (*)();
    const auto init = reinterpret_cast<EntryPoint>(dlsym(module, "InitVtxAddOn113"));
    ASSERT_NE(nullptr, init);
    // The add-on's own names stay inside the module.
    EXPECT_EQ(nullptr, dlsym(module, "_ZN6vantix11vtxutiltools7AddOnIDE"));

    init();
    const auto addOns = vantix::host::registeredAddOns();
    const auto keyFrame = std::find_if(addOns.begin(), addOns.end(),
                                       [](const auto& info) { return info.name == "Key Frame Animation"; });
    ASSERT_NE(addOns.end(), keyFrame);
    EXPECT_EQ(110, keyFrame->sdkVersion);
    EXPECT_EQ(0, vantix::host::globalLockDepth());
    EXPECT_EQ(0, vantix::host::lockDepth(keyFrame->handle));
    // The module stays loaded: the host never unloads an add-on while it runs.
}

} // namespace
