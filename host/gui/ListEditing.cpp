#include "gui/ListEditing.h"

#include <algorithm>

namespace vantix::host::detail
{

bool IsPosition(const GuiElement& control, int position)
{
    return position >= 1 && static_cast<std::size_t>(position) <= control.items.size();
}

void SelectExactly(GuiElement& list, std::vector<int> positions)
{
    std::sort(positions.begin(), positions.end());
    positions.erase(std::unique(positions.begin(), positions.end()), positions.end());
    list.selected = std::move(positions);
}

void DeleteEntry(GuiElement& list, int position)
{
    list.items.erase(list.items.begin() + (position - 1));
    std::vector<int> kept;
    for (const int selected : list.selected)
        if (selected != position)
            kept.push_back(selected > position ? selected - 1 : selected);
    list.selected = std::move(kept);
}

void DeleteAllEntries(GuiElement& control)
{
    control.items.clear();
    control.selected.clear();
    control.choice = 0;
}

void AppendOption(GuiElement& optionMenu, std::string item)
{
    optionMenu.items.push_back(std::move(item));
    if (optionMenu.choice == 0)
        optionMenu.choice = 1;
}

std::vector<std::string> SplitOptions(const std::string& itemText)
{
    std::vector<std::string> items;
    if (itemText.empty())
        return items;
    std::size_t start = 0;
    for (;;)
    {
        const std::size_t end = itemText.find('\n', start);
        items.push_back(itemText.substr(start, end == std::string::npos ? std::string::npos : end - start));
        if (end == std::string::npos)
            return items;
        start = end + 1;
    }
}

} // namespace vantix::host::detail
