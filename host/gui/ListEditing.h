// The entries and selection of a list or option menu as a toolkit keeps them: positions from 1, the
// selection ascending without repeats and following its entries when others are deleted.
#pragma once

#include <vantix/host/Gui.h>

#include <string>
#include <vector>

namespace vantix::host::detail
{

bool IsPosition(const GuiElement& control, int position);
// The selection becomes exactly these positions, which must all be entries.
void SelectExactly(GuiElement& list, std::vector<int> positions);
// The entries below move up by one, with their selection.
void DeleteEntry(GuiElement& list, int position);
void DeleteAllEntries(GuiElement& control);
// An option menu that had no entry shows the first one appended.
void AppendOption(GuiElement& optionMenu, std::string item);
// The entries of an option menu's item text: separated by line breaks; none for an empty text.
std::vector<std::string> SplitOptions(const std::string& itemText);

} // namespace vantix::host::detail
