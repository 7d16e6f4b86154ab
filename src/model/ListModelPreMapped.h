// A fixed list of values of an enumeration with the text shown for each, such as the entries of an option
// menu. Complete from construction and never changed.
#pragma once

#include "model/ListModelAbstract.h"

#include <stdexcept>
#include <string>
#include <vector>

namespace vantix::vtxutiltools
{

template <typename T>
struct PreMappedValue
{
    std::string displayString;
    T value;
};

template <typename T>
class ListModelPreMapped : public ListModelAbstract<T>
{
public:
    // Copies count records starting at values, in order.
    ListModelPreMapped(const PreMappedValue<T>* values, unsigned long count)
        : m_values(values, values + count)
    {
    }

    unsigned long size() const override { return m_values.size(); }

    std::string displayString(unsigned long index) const override { return record(index).displayString; }

    const T& data(unsigned long index) const override { return record(index).value; }

    unsigned long indexForData(const T& value) const override
    {
        for (unsigned long index = 0; index < m_values.size(); ++index)
        {
            if (m_values[index].value == value)
                return index;
        }
        return this->end();
    }

    void rebuildModel() override {}

private:
    const PreMappedValue<T>& record(unsigned long index) const
    {
        if (index >= m_values.size())
            throw std::out_of_range("No such entry in the list.");
        return m_values[index];
    }

    std::vector<PreMappedValue<T>> m_values;
};

} // namespace vantix::vtxutiltools
