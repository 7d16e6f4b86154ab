// What a dialog shows, one line per element, so that a whole layout is checked against a table of lines:
// kind, label (a list's, option menu's or radio box's entries after '|'), place, a '*' when a callback is
// bound, then the tooltip after '~' and a menu entry's help text after '?'. A dialog's line adds whether it
// is modal, its own buttons and its parent's title.
#pragma once

#include <vantix/host/Gui.h>

#include <string>
#include <vector>

namespace testsupport
{

inline std::string Describe(int id)
{
    static const char* const kinds[] = {"dialog", "button",  "field", "spin",      "list",
                                        "menu",   "toggle",  "radio", "frame",     "label",
                                        "bar",    "submenu", "item",  "checkable", "separator"};
    const vantix::host::GuiElement e = vantix::host::guiElement(id);
    std::string text = std::string(kinds[static_cast<int>(e.kind)]) + " " + e.label;
    for (const std::string& item : e.items)
        text += "|" + item;
    if (e.x || e.y || e.width || e.height)
        text += " @" + std::to_string(e.x) + "," + std::to_string(e.y) + "," + std::to_string(e.width) + "," +
                std::to_string(e.height);
    if (e.hasCallback)
        text += " *";
    if (!e.toolTip.empty())
        text += " ~" + e.toolTip;
    if (!e.helpText.empty())
        text += " ?" + e.helpText;
    if (e.kind == vantix::host::GuiKind::Dialog)
    {
        text += e.modal ? " modal" : " modeless";
        for (const std::string& button : e.buttons)
            text += " [" + button + "]";
        text += " in " +
                (e.parent == GuiId_MainWindow ? "the main window" : vantix::host::guiElement(e.parent).label);
    }
    // One line per element, whatever its label holds.
    for (std::size_t at = text.find('\n'); at != std::string::npos; at = text.find('\n', at))
        text.replace(at, 1, "\\n");
    return text;
}

// The element and everything in it, each level indented by two blanks, one line each.
inline std::string DescribeTree(int id, const std::string& indent = "")
{
    std::string text = indent + Describe(id) + "\n";
    for (const int child : vantix::host::guiElement(id).children)
        text += DescribeTree(child, indent + "  ");
    return text;
}

} // namespace testsupport
