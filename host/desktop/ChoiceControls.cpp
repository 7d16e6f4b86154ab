// Lists and radio boxes: the entries the model holds, and the person's choice among them.
#include "desktop/ControlWidget.h"

#include "desktop/DialogUnits.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QListWidget>
#include <QRadioButton>
#include <QSignalBlocker>

#include <algorithm>
#include <vector>

namespace vantix::host::desktop
{

namespace
{

class ListControl : public ControlWidget
{
public:
    ListControl(const GuiElement& control, QListWidget* list) : ControlWidget(control, list), m_list(list)
    {
        connect(m_list, &QListWidget::itemSelectionChanged, this, [this] { chosen(); });
    }

private:
    // Ascending, as the model keeps them.
    std::vector<int> selectedPositions() const
    {
        std::vector<int> positions;
        for (const QListWidgetItem* item : m_list->selectedItems())
            positions.push_back(m_list->row(item) + 1);
        std::sort(positions.begin(), positions.end());
        return positions;
    }

    void chosen()
    {
        std::vector<int> positions = selectedPositions();
        if (positions.size() == 1)
        {
            act([id = m_id, position = positions.front()] { selectListItem(id, position); });
            return;
        }
        if (!m_multiSelection)
        {
            act([] {}); // a Ctrl click took the one entry away: the model keeps it, and so does the list
            return;
        }
        // The add-on is told the entry clicked last, as a toolkit tells it after a Ctrl or Shift click.
        const int clicked = m_list->currentRow() + 1;
        const auto at = std::find(positions.begin(), positions.end(), clicked);
        if (at != positions.end())
            std::rotate(at, at + 1, positions.end());
        act([id = m_id, positions] { selectListItems(id, positions); });
    }

    void show(const GuiElement& now, const GuiElement& shown, bool first) override
    {
        m_multiSelection = now.multiSelection;
        if (first || now.multiSelection != shown.multiSelection)
            m_list->setSelectionMode(now.multiSelection ? QAbstractItemView::ExtendedSelection
                                                        : QAbstractItemView::SingleSelection);
        const bool newItems = first || now.items != shown.items;
        if (newItems)
        {
            m_list->clear();
            for (const std::string& item : now.items)
                m_list->addItem(QString::fromStdString(item));
        }
        if (!newItems && now.selected == shown.selected)
            return;
        m_list->clearSelection();
        for (const int position : now.selected)
            if (QListWidgetItem* item = m_list->item(position - 1))
                item->setSelected(true);
        if (!now.selected.empty())
            m_list->scrollToItem(m_list->item(now.selected.front() - 1));
    }

    void readBack(GuiElement& shown) const override { shown.selected = selectedPositions(); }

    QListWidget* m_list;
    bool m_multiSelection = false;
};

// The buttons fill the box's rectangle in rows as high as a radio button needs, column after column when
// the rectangle is too low for one column.
class RadioBoxControl : public ControlWidget
{
public:
    RadioBoxControl(const GuiElement& control, QWidget* box)
        : ControlWidget(control, box), m_box(box), m_group(new QButtonGroup(box)),
          m_grid(new QGridLayout(box))
    {
        m_grid->setContentsMargins(0, 0, 0, 0);
        m_grid->setVerticalSpacing(0);
    }

private:
    void makeButtons(const GuiElement& now)
    {
        // A click on a button may bring new labels: the old buttons go once the click is over.
        for (QAbstractButton* old : m_group->buttons())
        {
            m_group->removeButton(old);
            m_grid->removeWidget(old);
            old->hide();
            old->deleteLater();
        }
        const int count = static_cast<int>(now.items.size());
        const int rowsThatFit = std::max(1, DialogRect(now).height() / RadioRowHeight);
        const int columns = std::max(1, (count + rowsThatFit - 1) / rowsThatFit);
        const int rows = std::max(1, (count + columns - 1) / columns);
        for (int index = 0; index < count; ++index)
        {
            auto* button = new QRadioButton(MnemonicText(now.items[static_cast<std::size_t>(index)]), m_box);
            m_group->addButton(button, index);
            m_grid->addWidget(button, index % rows, index / rows);
            connect(button, &QRadioButton::clicked, this,
                    [this, index] { act([id = m_id, index] { chooseRadioButton(id, index + 1); }); });
        }
    }

    void show(const GuiElement& now, const GuiElement& shown, bool first) override
    {
        const bool newItems = first || now.items != shown.items;
        if (newItems)
            makeButtons(now);
        if (!newItems && now.choice == shown.choice)
            return;
        // No button is checked while the model has no choice, which an exclusive group cannot show.
        m_group->setExclusive(false);
        for (QAbstractButton* button : m_group->buttons())
        {
            const QSignalBlocker blocker(button);
            button->setChecked(m_group->id(button) == now.choice - 1);
        }
        m_group->setExclusive(true);
    }

    void readBack(GuiElement& shown) const override { shown.choice = m_group->checkedId() + 1; }

    static constexpr int RadioRowHeight = 20;

    QWidget* m_box;
    QButtonGroup* m_group; // the box owns both
    QGridLayout* m_grid;
};

} // namespace

std::unique_ptr<ControlWidget> MakeList(const GuiElement& control, QWidget* area)
{
    return std::make_unique<ListControl>(control, new QListWidget(area));
}

std::unique_ptr<ControlWidget> MakeRadioBox(const GuiElement& control, QWidget* area)
{
    return std::make_unique<RadioBoxControl>(control, new QWidget(area));
}

} // namespace vantix::host::desktop
