// The host's style settings, as a tree of names. A leaf is one setting with a fixed kind of value; most
// settings are stored in the tree, and those that belong to the active frame (its view, its rotation
// origin) read and write the frame through hooks.
#pragma once

#include <VtxUtil.h>

#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace vantix::host::detail
{

enum class StyleKind
{
    Boolean,
    Integer,
    Double,
    Enumeration,
    Text
};

// One value: bool for Boolean, int for Integer and Enumeration, double for Double, std::string for Text.
using StyleData = std::variant<bool, int, double, std::string>;

struct StyleSetting
{
    StyleKind kind = StyleKind::Double;
    StyleData stored;
    std::vector<int> enumValues; // the values an Enumeration accepts
    // For settings that live elsewhere; a write hook answers for itself whether it took the value.
    std::function<StyleData()> read;
    std::function<SetValueReturnCode_e(const StyleData&)> write;
    // When set, a read or write first asks whether the setting can be used now (for example, whether
    // there is an active 3D frame) and is refused with a context error otherwise.
    std::function<bool()> available;
    // Called after every write that took a value (not after a refused or duplicate one).
    std::function<void()> changed;
};

class StyleNode
{
public:
    explicit StyleNode(std::string path) : m_path(std::move(path)) {}

    // The full path, names joined by '/', as it was defined ("ThreeDView/ViewerPosition/X").
    const std::string& path() const { return m_path; }
    // The child with that name, ignoring the case of letters; null when there is none.
    const StyleNode* child(std::string_view name) const;
    StyleNode& addChild(std::string_view name);

    bool isSetting() const { return m_setting != nullptr; }
    StyleSetting& setting() { return *m_setting; }
    const StyleSetting& setting() const { return *m_setting; }
    void makeSetting(StyleSetting setting) { m_setting = std::make_unique<StyleSetting>(std::move(setting)); }

private:
    std::string m_path;
    std::string m_name;
    std::vector<std::unique_ptr<StyleNode>> m_children;
    std::unique_ptr<StyleSetting> m_setting;
};

class StyleTree
{
public:
    StyleTree() : m_root("") {}

    // The node at a path of names below the root; null when the host does not know it.
    const StyleNode* find(std::initializer_list<std::string_view> names) const;
    const StyleNode* find(const std::vector<std::string>& names) const;
    const StyleNode* findBelow(const StyleNode* from, const char* const* names, std::size_t count) const;

    // Defines a setting at a path, creating the nodes on the way.
    StyleSetting& define(std::initializer_list<std::string_view> names, StyleSetting setting);

    // Makes, once for each setting defined from now on (and given no change call of its own), the call
    // made after each write that took its value, from the setting's path; kept when the tree is cleared.
    using ChangeNotice = std::function<std::function<void()>(const std::string& path)>;
    void setChangeNotice(ChangeNotice notice) { m_changeNotice = std::move(notice); }

    void clear() { m_root = StyleNode(""); }

private:
    StyleNode m_root;
    ChangeNotice m_changeNotice;
};

// Reading and writing a setting with its checks: kind, enumeration range, finite numbers, the assignment
// operation. Every style access of the host goes through these two.
GetValueReturnCode_e ReadSetting(const StyleSetting& setting, StyleKind kind, StyleData& value);
SetValueReturnCode_e WriteSetting(StyleSetting& setting, StyleKind kind, const StyleData& value,
                                  int assignOp);

} // namespace vantix::host::detail
