#include "desktop/DialogMenuBar.h"

#include "desktop/DialogUnits.h"
#include "desktop/UserActions.h"

#include <QMenu>
#include <QMenuBar>

namespace vantix::host::desktop
{

namespace
{

// The bar and everything below it, each element before the entries it holds.
void Collect(int id, std::vector<GuiElement>& tree)
{
    tree.push_back(guiElement(id));
    for (const int child : std::vector<int>(tree.back().children))
        Collect(child, tree);
}

std::vector<int> Structure(const std::vector<GuiElement>& tree)
{
    std::vector<int> structure;
    for (const GuiElement& element : tree)
    {
        structure.push_back(element.id);
        structure.insert(structure.end(), element.children.begin(), element.children.end());
        structure.push_back(GuiId_None);
    }
    return structure;
}

} // namespace

DialogMenuBar::DialogMenuBar(QWidget* window) : m_bar(new QMenuBar(window)) {}

void DialogMenuBar::sync(int menuBar)
{
    std::vector<GuiElement> tree;
    Collect(menuBar, tree);
    if (Structure(tree) != m_structure)
        build(tree);
    // A parent comes before its entries: a menu's enabling is known when its entries are shown.
    for (const GuiElement& element : tree)
    {
        const auto entry = m_entries.find(element.id);
        if (entry == m_entries.end())
            continue;
        const auto parent = m_entries.find(element.parent);
        const bool parentEnabled = parent == m_entries.end() || parent->second.enabled;
        show(entry->second, element, parentEnabled && element.sensitive);
    }
}

QAction* DialogMenuBar::action(int entry) const
{
    const auto found = m_entries.find(entry);
    return found == m_entries.end() ? nullptr : found->second.action;
}

void DialogMenuBar::build(const std::vector<GuiElement>& tree)
{
    for (QMenu* menu : m_menus)
        delete menu;
    m_menus.clear();
    m_bar->clear();
    m_entries.clear();
    std::map<int, GuiElement> elements;
    for (const GuiElement& element : tree)
        elements.emplace(element.id, element);
    for (const int id : tree.front().children)
    {
        const GuiElement& menu = elements.at(id);
        if (menu.kind != GuiKind::Menu)
            continue;
        m_menus.push_back(new QMenu(m_bar));
        m_bar->addMenu(m_menus.back());
        m_entries[id].action = m_menus.back()->menuAction();
        addEntries(m_menus.back(), menu, elements);
    }
    m_structure = Structure(tree);
}

void DialogMenuBar::addEntries(QMenu* menu, const GuiElement& parent,
                               const std::map<int, GuiElement>& elements)
{
    menu->setToolTipsVisible(true);
    for (const int id : parent.children)
    {
        const GuiElement& entry = elements.at(id);
        switch (entry.kind)
        {
        case GuiKind::Menu:
        {
            QMenu* nested = menu->addMenu(QString());
            m_entries[id].action = nested->menuAction();
            addEntries(nested, entry, elements);
            break;
        }
        case GuiKind::MenuSeparator:
            menu->addSeparator();
            break;
        case GuiKind::MenuItem:
        case GuiKind::MenuToggle:
        {
            QAction* action = menu->addAction(QString());
            action->setCheckable(entry.kind == GuiKind::MenuToggle);
            m_entries[id].action = action;
            connect(action, &QAction::triggered, this,
                    [this, id, action]
                    {
                        // A toggle turned over as the person chose it: the next sync puts it back when the
                        // host refuses.
                        m_entries[id].shown.on = action->isChecked();
                        RunUserAction([id] { chooseMenuItem(id); });
                    });
            break;
        }
        default:
            break;
        }
    }
}

void DialogMenuBar::show(Entry& entry, const GuiElement& now, bool enabled)
{
    QAction* action = entry.action;
    const QSignalBlocker blocker(action);
    if (entry.first || now.label != entry.shown.label)
        action->setText(MnemonicText(now.label));
    if (entry.first || now.helpText != entry.shown.helpText || now.toolTip != entry.shown.toolTip)
    {
        const std::string& tip = now.toolTip.empty() ? now.helpText : now.toolTip;
        action->setStatusTip(QString::fromStdString(now.helpText));
        action->setToolTip(QString::fromStdString(tip)); // without one, Qt shows the label
    }
    if (entry.first || enabled != entry.enabled)
        action->setEnabled(enabled);
    if (action->isCheckable() && (entry.first || now.on != entry.shown.on))
        action->setChecked(now.on);
    entry.shown = now;
    entry.enabled = enabled;
    entry.first = false;
}

} // namespace vantix::host::desktop
