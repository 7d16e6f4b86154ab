// One table per enumeration that the add-on writes as text or reads back from text, converting both ways.
#pragma once

#include "core/CaseInsensitive.h"

#include <map>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>

namespace vantix::vtxutiltools
{

// Empties target, then inserts every (value, key) pair of source in source's key order. A value that
// target's ordering already holds is not inserted again, so of two keys with equivalent values the one
// that comes first in source wins (with a case-insensitive target: of two texts that differ only in case,
// the smaller key).
template <typename Key, typename Value, typename SourceOrder, typename TargetOrder>
void ReverseMap(const std::map<Key, Value, SourceOrder>& source, std::map<Value, Key, TargetOrder>& target)
{
    target.clear();
    for (const auto& entry : source)
        target.insert(std::make_pair(entry.second, entry.first));
}

// The text of every value of the enumeration T and back. Writing always gives the table's own spelling;
// reading ignores the case of letters (and nothing else: blanks and punctuation count), so that what the
// add-on writes has one form while hand-typed input may use any case.
//
// Each enumeration's owner supplies its table by defining the explicit specialization of initializeMaps,
// which fills the value-to-text map and then calls ReverseMap into the text-to-value map; that
// specialization must be declared beside the enumeration, before any conversion of it.
template <typename T>
class EnumMap
{
public:
    // Ordered by the value as a signed integer, whatever the enumeration's underlying type.
    struct ValueOrder
    {
        bool operator()(T a, T b) const { return Signed(a) < Signed(b); }
    };
    using ValueToText = std::map<T, std::string, ValueOrder>;
    using TextToValue = std::map<std::string, T, CaseInsensitiveStringCompareObj>;

    // The one instance for T, built on the first call. Should building fail, nothing is kept and the next
    // call builds again.
    static const EnumMap& getInstance()
    {
        static const EnumMap instance;
        return instance;
    }

    // The text of value, valid as long as the module is loaded. Throws std::out_of_range "Enumeration out
    // of range." for a value the table does not have.
    static const std::string& toString(T value)
    {
        const ValueToText& valueToText = getInstance().m_valueToText;
        const auto found = valueToText.find(value);
        if (found == valueToText.end())
            throw std::out_of_range(OutOfRangeMessage);
        return found->second;
    }

    // The value whose text equals text when case is ignored. Throws std::out_of_range "Enumeration out of
    // range." when no text matches.
    static T toEnum(const std::string& text)
    {
        const TextToValue& textToValue = getInstance().m_textToValue;
        const auto found = textToValue.find(text);
        if (found == textToValue.end())
            throw std::out_of_range(OutOfRangeMessage);
        return found->second;
    }

    // For readers that report an unknown word in their own words instead of as an out-of-range error.
    const TextToValue& textToValue() const { return m_textToValue; }

    EnumMap(const EnumMap&) = delete;
    EnumMap& operator=(const EnumMap&) = delete;

private:
    static constexpr const char* OutOfRangeMessage = "Enumeration out of range.";

    static std::make_signed_t<std::underlying_type_t<T>> Signed(T value)
    {
        return static_cast<std::make_signed_t<std::underlying_type_t<T>>>(
            static_cast<std::underlying_type_t<T>>(value));
    }

    EnumMap() { initializeMaps(); }

    // Defined once per enumeration, beside the code that owns it.
    void initializeMaps();

    ValueToText m_valueToText;
    TextToValue m_textToValue;
};

} // namespace vantix::vtxutiltools
