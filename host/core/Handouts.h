// What the host hands to add-ons and takes back when they release it (host arrays, argument lists): kept
// under the address the add-on holds, counted while outstanding, and told apart from anything the host
// never gave out.
#pragma once

#include <memory>
#include <unordered_map>

namespace vantix::host::detail
{

enum class Release
{
    Counted,   // released; it was counted as outstanding
    Uncounted, // released; it was handed out before the counts were last forgotten
    Unknown    // the host never gave out this address (or it was released already): nothing released
};

template <typename T>
class Handouts
{
public:
    // Keeps the object, counted as outstanding, under the address the add-on is given for it.
    void keep(const void* address, std::unique_ptr<T> object)
    {
        m_entries[address] = Entry{std::move(object), true};
        ++m_outstanding;
    }

    // Null for an address the host did not hand out.
    T* find(const void* address) const
    {
        const auto found = m_entries.find(address);
        return found == m_entries.end() ? nullptr : found->second.object.get();
    }

    Release release(const void* address)
    {
        const auto found = m_entries.find(address);
        if (found == m_entries.end())
            return Release::Unknown;
        const bool counted = found->second.counted;
        m_entries.erase(found);
        if (!counted)
            return Release::Uncounted;
        --m_outstanding;
        return Release::Counted;
    }

    long outstanding() const { return m_outstanding; }

    // After a reset of the host the count starts again from 0, but what was handed out before stays valid:
    // an add-on may still hold it and release it later.
    void forgetCounts()
    {
        for (auto& entry : m_entries)
            entry.second.counted = false;
        m_outstanding = 0;
    }

private:
    struct Entry
    {
        std::unique_ptr<T> object;
        bool counted = true;
    };
    std::unordered_map<const void*, Entry> m_entries;
    long m_outstanding = 0;
};

} // namespace vantix::host::detail
