// What a list view knows of the model it shows, whatever the model's item type: how many items there are,
// the text of each, and what changed.
#pragma once

#include <string>
#include <vector>

namespace vantix::vtxutiltools
{

class ListModelObserverInterface;

class ListModelGenericInterface
{
public:
    // One change of a model, in item indices counted from 0.
    struct ChangeInfo_s
    {
        enum ChangeType_e : int
        {
            ItemsAdded = 0,
            ItemsDeleted = 1,
            ItemsUpdated = 2,
            // Anything may have changed; the indices are empty.
            ModelReset = 3
        };

        ChangeType_e type = ModelReset;
        // In the order the model lists them, ascending for ranges.
        std::vector<unsigned long> indices;
    };
    using ChangeType_e = ChangeInfo_s::ChangeType_e;

    virtual void addObserver(ListModelObserverInterface& observer) = 0;
    virtual void removeObserver(ListModelObserverInterface& observer) = 0;
    virtual unsigned long size() const = 0;
    // The index that means "no such item": size() + 1. Inserting at end() appends.
    virtual unsigned long end() const = 0;
    virtual std::string displayString(unsigned long index) const = 0;
    // What a view shows instead of items while the model is empty.
    virtual std::string emptyModelMessage() const = 0;
    virtual ~ListModelGenericInterface() = default;
};

class ListModelObserverInterface
{
public:
    virtual ~ListModelObserverInterface() = default;
    virtual void modelChanged(const ListModelGenericInterface::ChangeInfo_s& change) = 0;
};

} // namespace vantix::vtxutiltools
