// The selection of a list control, in item indices counted from 0, and who hears when it changes.
#pragma once

#include <vector>

namespace vantix::vtxutiltools
{

class ListSelectionModelObserverInterface
{
public:
    virtual ~ListSelectionModelObserverInterface() = default;
    // selected: the indices selected now, in the order the control reports them.
    virtual void selectionChanged(const std::vector<unsigned long>& selected) = 0;
};

class ListSelectionModelInterface
{
public:
    virtual void addObserver(ListSelectionModelObserverInterface& observer) = 0;
    virtual void removeObserver(ListSelectionModelObserverInterface& observer) = 0;
    // The owner calls this when the user has changed the control's selection.
    virtual void selectionChanged() = 0;
    virtual void getSelectedItems(std::vector<unsigned long>& selected) const = 0;
    // Indices the control does not hold are dropped.
    virtual void setSelectedItems(const std::vector<unsigned long>& items) const = 0;
    // The selected index when exactly one item is selected, else -1.
    virtual int getSelectedItem() const = 0;
    // An index the control does not hold (negative, or not below the item count) clears the selection.
    virtual void setSelectedItem(int index) const = 0;
    virtual ~ListSelectionModelInterface() = default;
};

} // namespace vantix::vtxutiltools
