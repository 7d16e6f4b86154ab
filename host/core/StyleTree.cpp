#include "core/StyleTree.h"

#include "core/SameName.h"

#include <cmath>

namespace vantix::host::detail
{

namespace
{

// Integers and enumerations share the int alternative; the kind tells them apart.
bool DataFits(StyleKind kind, const StyleData& value)
{
    switch (kind)
    {
    case StyleKind::Boolean:
        return std::holds_alternative<bool>(value);
    case StyleKind::Integer:
    case StyleKind::Enumeration:
        return std::holds_alternative<int>(value);
    case StyleKind::Double:
        return std::holds_alternative<double>(value);
    case StyleKind::Text:
        return std::holds_alternative<std::string>(value);
    }
    return false;
}

enum AssignOperation
{
    Equals = 0,
    PlusEquals = 1,
    MinusEquals = 2,
    TimesEquals = 3,
    DivideEquals = 4
};

template <typename Number>
bool Combine(Number current, Number operand, int assignOp, Number& result)
{
    switch (assignOp)
    {
    case Equals:
        result = operand;
        return true;
    case PlusEquals:
        result = current + operand;
        return true;
    case MinusEquals:
        result = current - operand;
        return true;
    case TimesEquals:
        result = current * operand;
        return true;
    case DivideEquals:
        if (operand == 0)
            return false;
        result = current / operand;
        return true;
    }
    return false;
}

StyleData Current(const StyleSetting& setting)
{
    return setting.read ? setting.read() : setting.stored;
}

// The last checks of a write, on the value the setting is to take, and the write itself.
SetValueReturnCode_e Store(StyleSetting& setting, StyleKind kind, const StyleData& next)
{
    if (kind == StyleKind::Double && !std::isfinite(std::get<double>(next)))
        return SetValueReturnCode_InvalidValue;
    if (kind == StyleKind::Enumeration)
    {
        bool known = false;
        for (int allowed : setting.enumValues)
            known = known || allowed == std::get<int>(next);
        if (!known)
            return SetValueReturnCode_InvalidValue;
    }

    SetValueReturnCode_e result = SetValueReturnCode_Ok;
    if (setting.write)
        result = setting.write(next);
    else if (next == setting.stored)
        result = SetValueReturnCode_DuplicateValue;
    else
        setting.stored = next;
    if (result == SetValueReturnCode_Ok && setting.changed)
        setting.changed();
    return result;
}

} // namespace

const StyleNode* StyleNode::child(std::string_view name) const
{
    for (const auto& node : m_children)
        if (SameName(node->m_name, name))
            return node.get();
    return nullptr;
}

StyleNode& StyleNode::addChild(std::string_view name)
{
    if (const StyleNode* existing = child(name))
        return const_cast<StyleNode&>(*existing);
    auto node =
        std::make_unique<StyleNode>(m_path.empty() ? std::string(name) : m_path + "/" + std::string(name));
    node->m_name = std::string(name);
    m_children.push_back(std::move(node));
    return *m_children.back();
}

const StyleNode* StyleTree::find(std::initializer_list<std::string_view> names) const
{
    const StyleNode* node = &m_root;
    for (std::string_view name : names)
        if (!(node = node->child(name)))
            return nullptr;
    return node;
}

const StyleNode* StyleTree::find(const std::vector<std::string>& names) const
{
    const StyleNode* node = &m_root;
    for (const std::string& name : names)
        if (!(node = node->child(name)))
            return nullptr;
    return node;
}

const StyleNode* StyleTree::findBelow(const StyleNode* from, const char* const* names,
                                      std::size_t count) const
{
    const StyleNode* node = from ? from : &m_root;
    for (std::size_t i = 0; i < count && names[i]; ++i)
        if (!(node = node->child(names[i])))
            return nullptr;
    return node;
}

StyleSetting& StyleTree::define(std::initializer_list<std::string_view> names, StyleSetting setting)
{
    StyleNode* node = &m_root;
    for (std::string_view name : names)
        node = &node->addChild(name);
    if (m_changeNotice && !setting.changed)
        setting.changed = m_changeNotice(node->path());
    node->makeSetting(std::move(setting));
    return node->setting();
}

GetValueReturnCode_e ReadSetting(const StyleSetting& setting, StyleKind kind, StyleData& value)
{
    if (setting.kind != kind)
        return GetValueReturnCode_InvalidType;
    if (setting.available && !setting.available())
        return GetValueReturnCode_ContextError;
    value = Current(setting);
    return GetValueReturnCode_Ok;
}

SetValueReturnCode_e WriteSetting(StyleSetting& setting, StyleKind kind, const StyleData& value, int assignOp)
{
    if (setting.kind != kind || !DataFits(kind, value))
        return SetValueReturnCode_InvalidType;
    if (assignOp < Equals || assignOp > DivideEquals)
        return SetValueReturnCode_InvalidValue;
    if (setting.available && !setting.available())
        return SetValueReturnCode_ContextError;
    // A plain assignment, by far the most common, stores the value given as it is.
    if (assignOp == Equals)
        return Store(setting, kind, value);

    const StyleData current = Current(setting);
    if (kind == StyleKind::Double)
    {
        double result = 0.0;
        if (!Combine(std::get<double>(current), std::get<double>(value), assignOp, result))
            return SetValueReturnCode_InvalidValue;
        return Store(setting, kind, result);
    }
    if (kind == StyleKind::Integer)
    {
        int result = 0;
        if (!Combine(std::get<int>(current), std::get<int>(value), assignOp, result))
            return SetValueReturnCode_InvalidValue;
        return Store(setting, kind, result);
    }
    return SetValueReturnCode_InvalidValue; // switches, choices and texts are only assigned
}

} // namespace vantix::host::detail
