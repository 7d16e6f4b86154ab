// A dialog's menu bar as the host's GUI model holds it: its menus, nested menus, items, toggles and
// separators, each with its label, mnemonic, help text and state; a chosen entry is a user action.
#pragma once

#include <vantix/host/Gui.h>

#include <QObject>

#include <map>
#include <vector>

class QAction;
class QMenu;
class QMenuBar;

namespace vantix::host::desktop
{

class DialogMenuBar : public QObject
{
public:
    // The bar is made inside `window`, which owns it.
    explicit DialogMenuBar(QWidget* window);

    QMenuBar* bar() const { return m_bar; }
    // Makes the menus anew when entries came or went, then shows what differs from what they show.
    void sync(int menuBar);
    // A menu entry's action, or a menu's own; null for none.
    QAction* action(int entry) const;

private:
    struct Entry
    {
        QAction* action = nullptr; // the menu that holds it owns it
        GuiElement shown;
        bool enabled = true; // it and every menu above it sensitive
        bool first = true;
    };

    void build(const std::vector<GuiElement>& tree);
    void addEntries(QMenu* menu, const GuiElement& parent, const std::map<int, GuiElement>& elements);
    void show(Entry& entry, const GuiElement& now, bool enabled);

    QMenuBar* m_bar;
    std::vector<QMenu*> m_menus; // the top menus; each owns its entries and nested menus
    std::map<int, Entry> m_entries;
    std::vector<int> m_structure; // each element with its children, as built
};

} // namespace vantix::host::desktop
