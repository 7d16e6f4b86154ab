// The selection of a list view's host control. The control holds the selection itself; these models read
// and write it there, converting the control's positions (from 1) to item indices (from 0) and back, and
// tell their observers whenever they set it or the owner reports that the user changed it.
//
// The control is always the parent view's current one. While the view has no control (-2), the models
// make no host call at all: the selection reads as empty, every index counts as one the control does not
// hold, and setting a selection changes nothing but still tells the observers, who then read it as empty.
#pragma once

#include "gui/ListSelectionModelInterface.h"

#include <functional>
#include <set>
#include <vector>

namespace vantix::vtxutiltools
{

class ListViewInterface;

class ListSelectionModelAbstract : public virtual ListSelectionModelInterface
{
public:
    explicit ListSelectionModelAbstract(ListViewInterface& parent);
    ListSelectionModelAbstract(const ListSelectionModelAbstract&) = delete;
    ListSelectionModelAbstract& operator=(const ListSelectionModelAbstract&) = delete;

    ListViewInterface& parentView() const { return m_parentView; }

    // Each observer is kept once; neither call tells anybody anything.
    void addObserver(ListSelectionModelObserverInterface& observer) override;
    void removeObserver(ListSelectionModelObserverInterface& observer) override;
    void selectionChanged() override;

    // In the control's order, which is ascending.
    void getSelectedItems(std::vector<unsigned long>& selected) const override;
    int getSelectedItem() const override;
    void setSelectedItem(int index) const override;

    // Reads the selection once and hands it to every observer, in the order of their addresses.
    void notifyOfChange() const;

    // Removes, keeping the order of the rest, every entry that, taken as a signed 32-bit integer, is negative
    // or not below the control's item count. Instantiated for int and unsigned long.
    template <typename T>
    void eraseInvalidItems(std::vector<T>& items) const;

protected:
    int guiId() const;
    bool hasControl() const;
    // Under the host lock, empties the control's selection and lets select(control id) choose anew; then
    // tells the observers. Without a control only the observers are told.
    void replaceSelection(const std::function<void(int)>& select) const;

private:
    // Not owned.
    std::set<ListSelectionModelObserverInterface*> m_observers;
    ListViewInterface& m_parentView;
};

class ListSingleSelectionModel : public virtual ListSelectionModelAbstract
{
public:
    using ListSelectionModelAbstract::ListSelectionModelAbstract;

    // Selects the first index the control holds; the others are ignored.
    void setSelectedItems(const std::vector<unsigned long>& items) const override;
};

class ListMultiSelectionModel : public virtual ListSelectionModelAbstract
{
public:
    using ListSelectionModelAbstract::ListSelectionModelAbstract;

    // Selects exactly the indices the control holds.
    void setSelectedItems(const std::vector<unsigned long>& items) const override;
};

} // namespace vantix::vtxutiltools
