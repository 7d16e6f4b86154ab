// A log the tests read, kept while the host runs. It keeps the latest entries only, so that a batch run or
// a desktop session of any length does not make it grow without bound.
#pragma once

#include <cstddef>
#include <utility>
#include <vector>

namespace vantix::host::detail
{

template <typename Entry>
class RecentLog
{
public:
    // The latest entries kept at least; the log holds twice as many before it forgets the oldest.
    static constexpr std::size_t Kept = std::size_t(1) << 16;

    void add(Entry entry)
    {
        if (m_entries.size() >= 2 * Kept)
            m_entries.erase(m_entries.begin(), m_entries.end() - (Kept - 1));
        m_entries.push_back(std::move(entry));
    }
    // Oldest first.
    const std::vector<Entry>& entries() const { return m_entries; }
    void clear() { m_entries.clear(); }

private:
    std::vector<Entry> m_entries;
};

} // namespace vantix::host::detail
