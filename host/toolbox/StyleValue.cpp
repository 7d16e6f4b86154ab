#include "core/Application.h"

#include <vantix/toolbox/StyleValue.h>

namespace vantix::toolbox
{

namespace
{

using host::detail::Application;
using host::detail::StyleData;
using host::detail::StyleKind;
using host::detail::StyleNode;

const StyleNode* NodeOf(const void* handle)
{
    return static_cast<const StyleNode*>(handle);
}

bool OffsetsAreWhole(LgIndex_t offset1, LgIndex_t offset2)
{
    return offset1 == -1 && offset2 == -1;
}

GetValueReturnCode_e Read(const void* setting, StyleKind kind, LgIndex_t offset1, LgIndex_t offset2,
                          StyleData& data)
{
    if (!setting)
        return GetValueReturnCode_InvalidName;
    if (!OffsetsAreWhole(offset1, offset2))
        return GetValueReturnCode_ContextError;
    return host::detail::ReadSetting(NodeOf(setting)->setting(), kind, data);
}

SetValueReturnCode_e Write(const void* setting, StyleKind kind, const StyleData& data, Set_pa objectSet,
                           LgIndex_t offset1, LgIndex_t offset2, int assignOp)
{
    if (!setting)
        return SetValueReturnCode_InvalidName;
    if (objectSet || !OffsetsAreWhole(offset1, offset2))
        return SetValueReturnCode_ContextError;
    StyleNode* node = const_cast<StyleNode*>(NodeOf(setting));
    Application::instance().calls().noteStyleWrite(node->path());
    return host::detail::WriteSetting(node->setting(), kind, data, assignOp);
}

} // namespace

StyleValue::StyleValue(const char* name1, const char* name2, const char* name3, const char* name4,
                       const char* name5, const char* name6, const char* name7)
{
    const char* const names[] = {name1, name2, name3, name4, name5, name6, name7};
    if (name1)
        m_base = Application::instance().style().findBelow(nullptr, names, 7);
}

StyleValue::StyleValue(const StringList& names)
{
    std::vector<const char*> path;
    path.reserve(names.count());
    for (std::size_t i = 0; i < names.count(); ++i)
        path.push_back(names.get(i));
    if (!path.empty())
        m_base = Application::instance().style().findBelow(nullptr, path.data(), path.size());
}

StyleValue::MacroIDs StyleValue::initMacroIDsfromStyleValueNames(const char* name1, const char* name2,
                                                                 const char* name3, const char* name4,
                                                                 const char* name5, const char* name6) const
{
    MacroIDs ids;
    if (!m_base)
        return ids;
    const char* const names[] = {name1, name2, name3, name4, name5, name6};
    const StyleNode* node = Application::instance().style().findBelow(NodeOf(m_base), names, 6);
    if (node && node->isSetting())
        ids.m_setting = node;
    return ids;
}

GetValueReturnCode_e StyleValue::getScalar(const MacroIDs& ids, Kind kind, Scalar* value, LgIndex_t offset1,
                                           LgIndex_t offset2) const
{
    StyleData data;
    const GetValueReturnCode_e result =
        Read(addressedSetting(ids), static_cast<StyleKind>(kind), offset1, offset2, data);
    if (result != GetValueReturnCode_Ok)
        return result;
    switch (kind)
    {
    case Kind::Boolean:
        value->boolean = std::get<bool>(data);
        break;
    case Kind::Double:
        value->number = std::get<double>(data);
        break;
    default:
        value->integer = std::get<int>(data);
        break;
    }
    return result;
}

SetValueReturnCode_e StyleValue::setScalar(const MacroIDs& ids, Kind kind, Scalar value, Set_pa objectSet,
                                           LgIndex_t offset1, LgIndex_t offset2, AssignOp_e assignOp)
{
    StyleData data;
    switch (kind)
    {
    case Kind::Boolean:
        data = value.boolean;
        break;
    case Kind::Double:
        data = value.number;
        break;
    default:
        data = value.integer;
        break;
    }
    return Write(addressedSetting(ids), static_cast<StyleKind>(kind), data, objectSet, offset1, offset2,
                 assignOp);
}

GetValueReturnCode_e StyleValue::getText(const MacroIDs& ids, std::string* value, LgIndex_t offset1,
                                         LgIndex_t offset2) const
{
    StyleData data;
    const GetValueReturnCode_e result = Read(addressedSetting(ids), StyleKind::Text, offset1, offset2, data);
    if (result == GetValueReturnCode_Ok)
        *value = std::get<std::string>(data);
    return result;
}

SetValueReturnCode_e StyleValue::setText(const MacroIDs& ids, const std::string& value, Set_pa objectSet,
                                         LgIndex_t offset1, LgIndex_t offset2, AssignOp_e assignOp)
{
    return Write(addressedSetting(ids), StyleKind::Text, value, objectSet, offset1, offset2, assignOp);
}

} // namespace vantix::toolbox
