#include "gui/HostArrays.h"

namespace vantix::host::detail
{

int* HostArrays::handOut(const std::vector<int>& values)
{
    if (values.empty())
        return nullptr;
    auto array = std::make_unique<std::vector<int>>(values);
    int* const data = array->data();
    m_arrays.keep(data, std::move(array));
    return data;
}

} // namespace vantix::host::detail
