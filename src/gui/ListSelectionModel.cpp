#include "gui/ListSelectionModel.h"

#include "gui/ListViewInterface.h"
#include "platform/HostGuards.h"

#include <VtxGUI.h>
#include <VtxUtil.h>

#include <algorithm>
#include <cstdint>

namespace vantix::vtxutiltools
{

namespace
{

// The positions array the host hands out with a list's selection, released with the host's own function
// however the reader leaves.
class HostPositions
{
public:
    HostPositions() = default;
    ~HostPositions()
    {
        if (m_positions == nullptr)
            return;
        void* array = m_positions;
        VtxUtilArrayDealloc(&array);
    }
    HostPositions(const HostPositions&) = delete;
    HostPositions& operator=(const HostPositions&) = delete;

    int** receiver() { return &m_positions; }
    const int* begin() const { return m_positions; }

private:
    int* m_positions = nullptr;
};

} // namespace

ListSelectionModelAbstract::ListSelectionModelAbstract(ListViewInterface& parent) : m_parentView(parent) {}

void ListSelectionModelAbstract::addObserver(ListSelectionModelObserverInterface& observer)
{
    m_observers.insert(&observer);
}

void ListSelectionModelAbstract::removeObserver(ListSelectionModelObserverInterface& observer)
{
    m_observers.erase(&observer);
}

void ListSelectionModelAbstract::selectionChanged()
{
    notifyOfChange();
}

void ListSelectionModelAbstract::notifyOfChange() const
{
    if (m_observers.empty())
        return;
    std::vector<unsigned long> selected;
    getSelectedItems(selected);
    // An observer may detach itself or another one while being told; one that is gone is not told.
    const std::vector<ListSelectionModelObserverInterface*> observers(m_observers.begin(), m_observers.end());
    for (ListSelectionModelObserverInterface* observer : observers)
    {
        if (m_observers.count(observer) != 0)
            observer->selectionChanged(selected);
    }
}

void ListSelectionModelAbstract::getSelectedItems(std::vector<unsigned long>& selected) const
{
    selected.clear();
    if (!hasControl())
        return;
    HostLock lock;
    HostPositions positions;
    int count = 0;
    VtxGUIListGetSelectedItems(guiId(), positions.receiver(), &count);
    if (positions.begin() == nullptr)
        return;
    selected.assign(positions.begin(), positions.begin() + count);
    for (unsigned long& item : selected)
        --item;
}

int ListSelectionModelAbstract::getSelectedItem() const
{
    std::vector<unsigned long> selected;
    getSelectedItems(selected);
    if (selected.size() != 1)
        return -1;
    return static_cast<int>(selected.front());
}

void ListSelectionModelAbstract::setSelectedItem(int index) const
{
    if (hasControl())
    {
        HostLock lock;
        const int id = guiId();
        if (index < 0 || index >= VtxGUIListGetItemCount(id))
            VtxGUIListDeselectAllItems(id);
        else
            VtxGUIListSetSelectedItem(id, index + 1);
    }
    notifyOfChange();
}

template <typename T>
void ListSelectionModelAbstract::eraseInvalidItems(std::vector<T>& items) const
{
    if (!hasControl())
    {
        items.clear();
        return;
    }
    HostLock lock;
    const int id = guiId();
    // The count is asked for every entry afresh rather than once, as the control may change meanwhile.
    const auto invalid = [id](const T& item)
    {
        const auto index = static_cast<std::int32_t>(item);
        return index < 0 || index >= VtxGUIListGetItemCount(id);
    };
    items.erase(std::remove_if(items.begin(), items.end(), invalid), items.end());
}

template void ListSelectionModelAbstract::eraseInvalidItems<int>(std::vector<int>&) const;
template void ListSelectionModelAbstract::eraseInvalidItems<unsigned long>(std::vector<unsigned long>&) const;

int ListSelectionModelAbstract::guiId() const
{
    return m_parentView.guiId();
}

bool ListSelectionModelAbstract::hasControl() const
{
    return guiId() != GuiId_None;
}

void ListSelectionModelAbstract::replaceSelection(const std::function<void(int)>& select) const
{
    if (hasControl())
    {
        HostLock lock;
        const int id = guiId();
        VtxGUIListDeselectAllItems(id);
        select(id);
    }
    notifyOfChange();
}

void ListSingleSelectionModel::setSelectedItems(const std::vector<unsigned long>& items) const
{
    replaceSelection(
        [&](int id)
        {
            std::vector<unsigned long> remaining(items);
            eraseInvalidItems(remaining);
            if (!remaining.empty())
                VtxGUIListSetSelectedItem(id, static_cast<int>(remaining.front()) + 1);
        });
}

void ListMultiSelectionModel::setSelectedItems(const std::vector<unsigned long>& items) const
{
    replaceSelection(
        [&](int id)
        {
            std::vector<int> positions(items.begin(), items.end());
            eraseInvalidItems(positions);
            if (positions.empty())
                return;
            for (int& position : positions)
                ++position;
            VtxGUIListSetSelectedItems(id, positions.data(), static_cast<int>(positions.size()));
        });
}

} // namespace vantix::vtxutiltools
