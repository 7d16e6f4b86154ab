// The arrays the host hands to add-ons (the selected positions of a list), which add-ons release with
// VtxUtilArrayDealloc.
#pragma once

#include "core/Handouts.h"

#include <vector>

namespace vantix::host::detail
{

class HostArrays
{
public:
    // A copy of the values in host memory; null for no values, so that nothing needs releasing.
    int* handOut(const std::vector<int>& values);
    Release release(const void* array) { return m_arrays.release(array); }
    long outstanding() const { return m_arrays.outstanding(); }
    void forgetCounts() { m_arrays.forgetCounts(); }

private:
    Handouts<std::vector<int>> m_arrays;
};

} // namespace vantix::host::detail
