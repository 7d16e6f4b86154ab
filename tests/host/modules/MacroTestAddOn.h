// The macro test add-on (MacroTestAddOn.cpp) as the tests see it: loaded the way the host loads add-ons,
// and read back through the values it exports.
#pragma once

#include <vantix/host/Macro.h>

#include <dlfcn.h>
#include <stdexcept>
#include <string>
#include <vector>

namespace testsupport
{

class MacroTestAddOn
{
public:
    static constexpr const char* ID = "Macro Test Add-On";
    static constexpr const char* Path = MACRO_TEST_ADDON_PATH;

    // Loads the module through the host (which starts it once per process and never unloads it) and
    // forgets what it received.
    MacroTestAddOn()
    {
        vantix::host::loadAddOnModule(Path);
        void* module = dlopen(Path, RTLD_NOW | RTLD_NOLOAD);
        m_initCalls = static_cast<const int*>(module ? dlsym(module, "MacroTestAddOnInitCalls") : nullptr);
        m_received = static_cast<std::vector<std::string>*>(module ? dlsym(module, "MacroTestAddOnReceived")
                                                                   : nullptr);
        if (!m_initCalls || !m_received)
            throw std::runtime_error("the macro test add-on is not loaded");
        dlclose(module);
        forget();
    }

    int initCalls() const { return *m_initCalls; }
    // The command texts the add-on's macro callback received, in order.
    std::vector<std::string> received() const { return *m_received; }
    void forget() const { m_received->clear(); }

private:
    const int* m_initCalls = nullptr;
    std::vector<std::string>* m_received = nullptr;
};

} // namespace testsupport
