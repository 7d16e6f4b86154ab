// Access to one of the host's style settings by name.
//
// A StyleValue is opened on the first names of a style path ("ThreeDView", or "Interface",
// "UseDisplayLists"); initMacroIDsfromStyleValueNames turns the remaining names into the host's identifiers
// of one setting, and getValue / setValue read or write that setting as a value of type T:
//
//     StyleValue view("ThreeDView");
//     view.setValue(30.0, nullptr, -1, -1, view.initMacroIDsfromStyleValueNames("PSIAngle"));
//
// T is bool or char (the host's Boolean) for switches, int for counts, double for numbers, an enumeration of
// the host for choices, or std::string for texts. An unknown path or a value of the wrong type is refused
// with an error code; nothing is ever thrown.
#pragma once

#include <VtxUtil.h>
#include <vantix/toolbox/StringList.h>

#include <string>
#include <type_traits>

namespace vantix::toolbox
{

enum AssignOp_e
{
    AssignOp_Equals = 0,
    AssignOp_PlusEquals = 1,
    AssignOp_MinusEquals = 2,
    AssignOp_TimesEquals = 3,
    AssignOp_DivideEquals = 4
};

class VTX_SDK_API StyleValue
{
public:
    // The host's identifiers of one setting below the opened path. An identifier of a path the host does
    // not know is invalid, and every get or set through it is refused with "invalid name".
    class MacroIDs
    {
    public:
        MacroIDs() = default;
        bool isValid() const { return m_setting != nullptr; }

    private:
        friend class StyleValue;
        const void* m_setting = nullptr;
    };

    explicit StyleValue(const char* name1, const char* name2 = nullptr, const char* name3 = nullptr,
                        const char* name4 = nullptr, const char* name5 = nullptr, const char* name6 = nullptr,
                        const char* name7 = nullptr);
    explicit StyleValue(const StringList& names);
    StyleValue(const StyleValue&) = delete;
    StyleValue& operator=(const StyleValue&) = delete;
    ~StyleValue() = default;

    // The remaining names of the path, up to the first null. With no names, the opened path itself.
    MacroIDs initMacroIDsfromStyleValueNames(const char* name1 = nullptr, const char* name2 = nullptr,
                                             const char* name3 = nullptr, const char* name4 = nullptr,
                                             const char* name5 = nullptr, const char* name6 = nullptr) const;

    // The offsets select one of several objects of a setting; this host's settings have one object each,
    // so both must be -1.
    template <typename T>
    GetValueReturnCode_e getValue(T* value, LgIndex_t offset1, LgIndex_t offset2, const MacroIDs& ids) const;

    // objectSet must be null: no setting of this host belongs to a set of objects.
    template <typename T>
    SetValueReturnCode_e setValue(const T& value, Set_pa objectSet, LgIndex_t offset1, LgIndex_t offset2,
                                  const MacroIDs& ids, AssignOp_e assignOp = AssignOp_Equals);

private:
    enum class Kind
    {
        Boolean,
        Integer,
        Double,
        Enumeration,
        Text
    };
    union Scalar
    {
        bool boolean;
        int integer;
        double number;
    };

    GetValueReturnCode_e getScalar(const MacroIDs& ids, Kind kind, Scalar* value, LgIndex_t offset1,
                                   LgIndex_t offset2) const;
    SetValueReturnCode_e setScalar(const MacroIDs& ids, Kind kind, Scalar value, Set_pa objectSet,
                                   LgIndex_t offset1, LgIndex_t offset2, AssignOp_e assignOp);
    GetValueReturnCode_e getText(const MacroIDs& ids, std::string* value, LgIndex_t offset1,
                                 LgIndex_t offset2) const;
    SetValueReturnCode_e setText(const MacroIDs& ids, const std::string& value, Set_pa objectSet,
                                 LgIndex_t offset1, LgIndex_t offset2, AssignOp_e assignOp);

    // The setting that ids address below the opened path; null when either is unknown.
    const void* addressedSetting(const MacroIDs& ids) const { return m_base ? ids.m_setting : nullptr; }

    template <typename T>
    static constexpr Kind kindOf()
    {
        if constexpr (std::is_same_v<T, bool> || std::is_same_v<T, char>)
            return Kind::Boolean;
        else if constexpr (std::is_enum_v<T>)
            return Kind::Enumeration;
        else if constexpr (std::is_same_v<T, int>)
            return Kind::Integer;
        else
        {
            static_assert(std::is_same_v<T, double>,
                          "style values are bool, char, int, double, enums or texts");
            return Kind::Double;
        }
    }

    const void* m_base = nullptr; // the opened path's node in the host's style tree; null when unknown
};

template <typename T>
GetValueReturnCode_e StyleValue::getValue(T* value, LgIndex_t offset1, LgIndex_t offset2,
                                          const MacroIDs& ids) const
{
    if constexpr (std::is_same_v<T, std::string>)
        return getText(ids, value, offset1, offset2);
    else
    {
        constexpr Kind kind = kindOf<T>();
        Scalar scalar{};
        const GetValueReturnCode_e result = getScalar(ids, kind, &scalar, offset1, offset2);
        if (result != GetValueReturnCode_Ok)
            return result;
        if constexpr (kind == Kind::Boolean)
            *value = static_cast<T>(scalar.boolean);
        else if constexpr (kind == Kind::Double)
            *value = scalar.number;
        else
            *value = static_cast<T>(scalar.integer);
        return result;
    }
}

template <typename T>
SetValueReturnCode_e StyleValue::setValue(const T& value, Set_pa objectSet, LgIndex_t offset1,
                                          LgIndex_t offset2, const MacroIDs& ids, AssignOp_e assignOp)
{
    if constexpr (std::is_same_v<T, std::string>)
        return setText(ids, value, objectSet, offset1, offset2, assignOp);
    else
    {
        constexpr Kind kind = kindOf<T>();
        Scalar scalar{};
        if constexpr (kind == Kind::Boolean)
            scalar.boolean = value != 0;
        else if constexpr (kind == Kind::Double)
            scalar.number = value;
        else
            scalar.integer = static_cast<int>(value);
        return setScalar(ids, kind, scalar, objectSet, offset1, offset2, assignOp);
    }
}

} // namespace vantix::toolbox
