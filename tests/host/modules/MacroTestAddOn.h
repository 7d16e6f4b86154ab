// The macro test add-on (MacroTestAddOn.cpp) as the tests see it: loaded the way the host loads add-ons,
// and read back through the functions it exports.
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

    // Loads the module through the host (which starts it once per process) and forgets what it received.
    MacroTestAddOn()
    {
        vantix::host::loadAddOnModule(Path);
        m_module = dlopen(Path, RTLD_NOW | RTLD_NOLOAD);
        if (!m_module)
            throw std::runtime_error(std::string("the macro test add-on is not loaded: ") + dlerror());
        forget();
    }
    MacroTestAddOn(const MacroTestAddOn&) = delete;
    MacroTestAddOn& operator=(const MacroTestAddOn&) = delete;
    ~MacroTestAddOn() { dlclose(m_module); }

    int initCalls() const { return function<int (*)()>("MacroTestAddOnInitCalls")(); }

    // The command texts the add-on's macro callback received, in order.
    std::vector<std::string> received() const
    {
        std::vector<std::string> texts;
        const auto count = function<int (*)()>("MacroTestAddOnReceivedCount");
        const auto text = function<const char* (*)(int)>("MacroTestAddOnReceived");
        for (int i = 0; i < count(); ++i)
            texts.emplace_back(text(i));
        return texts;
    }

    void forget() const { function<void (*)()>("MacroTestAddOnForget")(); }

private:
    template <typename Function>
    Function function(const char* name) const
    {
        const auto found = reinterpret_cast<Function>(dlsym(m_module, name));
        if (!found)
            throw std::runtime_error(std::string("the macro test add-on does not export ") + name);
        return found;
    }

    void* m_module = nullptr;
};

} // namespace testsupport
