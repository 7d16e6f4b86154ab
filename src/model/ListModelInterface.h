// A list model over items of type T: the typed half that the model's owner edits through.
#pragma once

#include "model/ListModelGenericInterface.h"

#include <vector>

namespace vantix::vtxutiltools
{

template <typename T>
class ListModelInterface : public virtual ListModelGenericInterface
{
public:
    virtual const T& data(unsigned long index) const = 0;
    virtual void setData(unsigned long index, const T& item) = 0;
    // The first index whose item equals item, else end().
    virtual unsigned long indexForData(const T& item) const = 0;
    // index from 0 to size() inserts before that item; end() appends.
    virtual void insertItem(unsigned long index, const T& item) = 0;
    virtual void insertItems(unsigned long index, const std::vector<T>& items) = 0;
    virtual void removeItem(unsigned long index) = 0;
    virtual void removeItems(unsigned long first, unsigned long count) = 0;
    // Called when the first observer attaches: a model whose items are costly may build them only now.
    virtual void rebuildModel() = 0;
    // Called when the last observer detaches: such a model may let its items go again.
    virtual void freeMemory() = 0;
};

} // namespace vantix::vtxutiltools
