// The observer bookkeeping and change delivery that every list model shares.
//
// A model reports each item-level change with queueChange; the change reaches every observer at once,
// observer after observer, each receiving the whole queue before the next. Changes made while nobody
// observes are dropped rather than kept: an observer that attaches later rebuilds from the model's
// current contents anyway. A whole-model reset discards whatever is queued and replaces it with one
// ModelReset record.
#pragma once

#include "model/ListModelInterface.h"

#include <set>
#include <string>
#include <utility>
#include <vector>

namespace vantix::vtxutiltools
{

template <typename T>
class ListModelAbstract : public ListModelInterface<T>
{
public:
    using ChangeInfo_s = ListModelGenericInterface::ChangeInfo_s;

    // The first observer rebuilds the model. It also settles a reset made while nobody observed: the new
    // observer starts from the model's current contents, so that reset has nothing left to tell, and
    // keeping it pending would silence every later item-level change.
    void addObserver(ListModelObserverInterface& observer) override
    {
        if (m_observers.empty())
        {
            this->rebuildModel();
            m_resetPending = false;
            m_pendingChanges.clear();
        }
        m_observers.insert(&observer);
    }

    // Leaving no observer, whether or not this one was attached, lets the model free its memory.
    void removeObserver(ListModelObserverInterface& observer) override
    {
        m_observers.erase(&observer);
        if (m_observers.empty())
            this->freeMemory();
    }

    unsigned long end() const override { return this->size() + 1; }

    std::string emptyModelMessage() const override { return "No items available."; }

    unsigned long indexForData(const T& item) const override
    {
        const unsigned long count = this->size();
        for (unsigned long index = 0; index < count; ++index)
        {
            if (this->data(index) == item)
                return index;
        }
        return end();
    }

    // A read-only model keeps these; editable models override what they support.
    void setData(unsigned long, const T&) override {}
    void insertItem(unsigned long, const T&) override {}
    void insertItems(unsigned long, const std::vector<T>&) override {}
    void removeItem(unsigned long) override {}
    void removeItems(unsigned long, unsigned long) override {}
    void freeMemory() override {}

    // Everything may have changed: queued changes are discarded and observers, if any, are told to
    // rebuild.
    void modelReset()
    {
        m_resetPending = true;
        m_pendingChanges.clear();
        m_pendingChanges.push_back(ChangeInfo_s{ChangeInfo_s::ModelReset, {}});
        if (!m_observers.empty())
            notifyObserversOfChange();
    }

    // Delivers the queue to every observer and empties it, also when an observer throws (the observers
    // not yet served then hear nothing). The queue is taken out before delivery, so an observer that
    // changes the model meanwhile has that change delivered on its own rather than into a queue being
    // read; an observer that detaches another during delivery keeps the detached one from being told.
    void notifyObserversOfChange()
    {
        if (m_resetPending)
            this->rebuildModel();
        std::vector<ChangeInfo_s> changes;
        changes.swap(m_pendingChanges);
        m_resetPending = false;

        const std::vector<ListModelObserverInterface*> observers(m_observers.begin(), m_observers.end());
        for (ListModelObserverInterface* observer : observers)
        {
            for (const ChangeInfo_s& change : changes)
            {
                if (m_observers.count(observer) == 0)
                    break;
                observer->modelChanged(change);
            }
        }
    }

protected:
    ListModelAbstract() = default;
    ListModelAbstract(const ListModelAbstract&) = delete;
    ListModelAbstract& operator=(const ListModelAbstract&) = delete;

    void queueChange(const ChangeInfo_s& change)
    {
        if (m_resetPending || m_observers.empty())
            return;
        m_pendingChanges.push_back(change);
        notifyObserversOfChange();
    }

    void queueChange(typename ChangeInfo_s::ChangeType_e type, std::vector<unsigned long> indices)
    {
        queueChange(ChangeInfo_s{type, std::move(indices)});
    }

private:
    std::set<ListModelObserverInterface*> m_observers;
    bool m_resetPending = false;
    std::vector<ChangeInfo_s> m_pendingChanges;
};

} // namespace vantix::vtxutiltools
