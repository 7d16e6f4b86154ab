#include "gui/HostMenus.h"

#include <algorithm>

namespace vantix::host::detail
{

const std::vector<std::string>& HostMenus::menuNames()
{
    static const std::vector<std::string> names = {
        "File", "Edit", "View", "Plot", "Animate", "Data", "Frame", "Options", "Scripting", "Tools", "Help"};
    return names;
}

bool HostMenus::add(const CallContext& call, const char* menu, const char* label, bool sensitive,
                    MenuOptionCallback_pf callback)
{
    const std::string menuName = menu ? menu : "";
    const auto& names = menuNames();
    if (std::find(names.begin(), names.end(), menuName) == names.end())
    {
        call.refuse("was given the menu \"" + menuName + "\", which the host does not have");
        return false;
    }
    if (!label || !*label || !callback)
    {
        call.refuse(std::string("was given ") + (callback ? "no label" : "no callback") +
                    " for an option of menu \"" + menuName + "\"");
        return false;
    }
    const auto same = [&](const HostMenuEntry& entry)
    { return entry.option.menu == menuName && entry.option.label == label; };
    if (std::any_of(m_entries.begin(), m_entries.end(), same))
    {
        call.refuse("was given the option \"" + std::string(label) + "\", which menu \"" + menuName +
                    "\" has already");
        return false;
    }
    HostMenuEntry entry;
    entry.option.menu = menuName;
    entry.option.label = label;
    entry.option.sensitive = sensitive;
    entry.callback = callback;
    m_entries.push_back(std::move(entry));
    return true;
}

bool HostMenus::setSensitivity(const CallContext& call, const char* menu, const char* label, bool sensitive)
{
    const std::string menuName = menu ? menu : "";
    const std::string labelText = label ? label : "";
    for (HostMenuEntry& entry : m_entries)
        if (entry.option.menu == menuName && entry.option.label == labelText)
        {
            entry.option.sensitive = sensitive;
            return true;
        }
    call.refuse("was given the option \"" + labelText + "\" of menu \"" + menuName +
                "\", which no add-on added");
    return false;
}

HostMenuEntry* HostMenus::find(const std::string& menu, const std::string& label)
{
    for (HostMenuEntry& entry : m_entries)
        if (entry.option.menu == menu &&
            (entry.option.label == label || vantix::host::readableLabel(entry.option.label) == label))
            return &entry;
    return nullptr;
}

} // namespace vantix::host::detail
