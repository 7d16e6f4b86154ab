#include "export/ExportSetup.h"

#include "core/Application.h"
#include "core/SameName.h"
#include "render/Render.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <type_traits>
#include <utility>
#include <vector>

namespace vantix::host::detail
{

namespace
{

struct Keyword
{
    const char* text;
    int value;
    bool animation = false; // of an export format: whether it holds more than one frame
};

const std::vector<Keyword> FormatKeywords = {{"RASTERMETAFILE", ExportFormat_RasterMetafile, true},
                                             {"TIFF", ExportFormat_TIFF},
                                             {"BMP", ExportFormat_BMP},
                                             {"PNG", ExportFormat_PNG},
                                             {"AVI", ExportFormat_AVI, true},
                                             {"JPEG", ExportFormat_JPEG},
                                             {"FLASH", ExportFormat_Flash, true},
                                             {"FLV", ExportFormat_FLV, true},
                                             {"MPEG4", ExportFormat_MPEG4, true},
                                             {"WMV", ExportFormat_WMV, true}};
const std::vector<Keyword> RegionKeywords = {{"CURRENTFRAME", ExportRegion_CurrentFrame},
                                             {"ALLFRAMES", ExportRegion_AllFrames},
                                             {"WORKAREA", ExportRegion_WorkArea}};
const std::vector<Keyword> AVICompressionKeywords = {
    {"COLORPRESERVING", AVICompression_ColorPreserving},
    {"LINEPRESERVING", AVICompression_LinePreserving},
    {"LOSSLESSUNCOMPRESSED", AVICompression_LosslessUncompressed}};
const std::vector<Keyword> FlashImageTypeKeywords = {{"LOSSLESS", FlashImageType_Lossless},
                                                     {"JPEG", FlashImageType_JPEG},
                                                     {"256COLOR", FlashImageType_Color256}};
const std::vector<Keyword> FlashCompressionKeywords = {{"BESTSPEED", FlashCompressionType_BestSpeed},
                                                       {"SMALLESTSIZE", FlashCompressionType_SmallestSize}};

enum class ValueKind
{
    Enumeration,
    Integer,
    Double,
    Boolean,
    Text
};

struct SettingInfo
{
    const char* name;
    ValueKind kind;
    const std::vector<Keyword>* keywords; // enumerations
    double minimum, maximum;              // numbers
};

const std::vector<SettingInfo> Settings = {
    {"ExportFormat", ValueKind::Enumeration, &FormatKeywords, 0, 0},
    {"ExportRegion", ValueKind::Enumeration, &RegionKeywords, 0, 0},
    {"ImageWidth", ValueKind::Integer, nullptr, 2, LargestPictureSide},
    // The speeds the export dialog offers; every movie format carries each of them.
    {"AnimationSpeed", ValueKind::Double, nullptr, 0.001, 200},
    {"UseSuperSampleAntiAliasing", ValueKind::Boolean, nullptr, 0, 0},
    {"SuperSampleFactor", ValueKind::Integer, nullptr, 1, 16},
    {"AVICompression", ValueKind::Enumeration, &AVICompressionKeywords, 0, 0},
    {"FlashImageType", ValueKind::Enumeration, &FlashImageTypeKeywords, 0, 0},
    {"FlashCompressionType", ValueKind::Enumeration, &FlashCompressionKeywords, 0, 0},
    {"ExportFName", ValueKind::Text, nullptr, 0, 0},
};

const SettingInfo* FindSetting(const std::string& name)
{
    for (const SettingInfo& setting : Settings)
        if (SameName(name, setting.name))
            return &setting;
    return nullptr;
}

StyleSetting& SettingNamed(const char* name)
{
    const StyleNode* node = Application::instance().style().find({"ExportSetup", name});
    return const_cast<StyleNode*>(node)->setting();
}

template <typename T>
T Read(const char* name)
{
    const StyleSetting& setting = SettingNamed(name);
    StyleData value;
    ReadSetting(setting, setting.kind, value);
    if constexpr (std::is_enum_v<T>)
        return static_cast<T>(std::get<int>(value));
    else
        return std::get<T>(value);
}

std::string Trimmed(const std::string& text)
{
    const auto first =
        std::find_if_not(text.begin(), text.end(), [](unsigned char c) { return std::isspace(c); });
    const auto last =
        std::find_if_not(text.rbegin(), text.rend(), [](unsigned char c) { return std::isspace(c); }).base();
    return first < last ? std::string(first, last) : std::string();
}

StyleKind StyleKindOf(ValueKind kind)
{
    switch (kind)
    {
    case ValueKind::Enumeration:
        return StyleKind::Enumeration;
    case ValueKind::Integer:
        return StyleKind::Integer;
    case ValueKind::Double:
        return StyleKind::Double;
    case ValueKind::Boolean:
        return StyleKind::Boolean;
    case ValueKind::Text:
        break;
    }
    return StyleKind::Text;
}

// Numbers keep to their range, file names are not empty: checked on every write, through
// VtxUtilExportSetup, macros and style values alike.
std::string Refusal(const SettingInfo& info, const StyleData& value)
{
    const auto outside = [&info](double number)
    { return !(number >= info.minimum && number <= info.maximum); };
    if ((info.kind == ValueKind::Integer && outside(std::get<int>(value))) ||
        (info.kind == ValueKind::Double && outside(std::get<double>(value))))
    {
        char range[64];
        std::snprintf(range, sizeof range, "%g and %g", info.minimum, info.maximum);
        return std::string(info.name) + " must lie between " + range;
    }
    if (info.kind == ValueKind::Text && std::get<std::string>(value).empty())
        return std::string(info.name) + " must not be empty";
    return {};
}

SetValueReturnCode_e Write(const SettingInfo& info, const StyleData& value, std::string& why)
{
    Application::instance().calls().noteStyleWrite(std::string("ExportSetup/") + info.name);
    const SetValueReturnCode_e result =
        WriteSetting(SettingNamed(info.name), StyleKindOf(info.kind), value, 0);
    if (result == SetValueReturnCode_InvalidValue)
    {
        why = Refusal(info, value);
        if (why.empty())
            why = "not a value of " + std::string(info.name);
    }
    return result;
}

StyleData DefaultOf(const std::string& name)
{
    const ExportSettings defaults;
    const std::map<std::string, StyleData> values = {
        {"ExportFormat", static_cast<int>(defaults.format)},
        {"ExportRegion", static_cast<int>(defaults.region)},
        {"ImageWidth", defaults.imageWidth},
        {"AnimationSpeed", defaults.animationSpeed},
        {"UseSuperSampleAntiAliasing", defaults.supersample},
        {"SuperSampleFactor", defaults.supersampleFactor},
        {"AVICompression", static_cast<int>(defaults.aviCompression)},
        {"FlashImageType", static_cast<int>(defaults.flashImageType)},
        {"FlashCompressionType", static_cast<int>(defaults.flashCompression)},
        {"ExportFName", defaults.fileName},
    };
    return values.at(name);
}

} // namespace

void DefineExportStyles(StyleTree& style)
{
    for (const SettingInfo& info : Settings)
    {
        StyleSetting setting;
        setting.kind = StyleKindOf(info.kind);
        setting.stored = DefaultOf(info.name);
        if (info.keywords)
            for (const Keyword& keyword : *info.keywords)
                setting.enumValues.push_back(keyword.value);
        StyleSetting& defined = style.define({"ExportSetup", info.name}, std::move(setting));
        defined.write = [&defined, info](const StyleData& value)
        {
            if (!Refusal(info, value).empty())
                return SetValueReturnCode_InvalidValue;
            if (value == defined.stored)
                return SetValueReturnCode_DuplicateValue;
            defined.stored = value;
            return SetValueReturnCode_Ok;
        };
    }
}

namespace
{

// The "ExportSetup" settings are the export's own: they join the host's style tree as soon as the export
// is loaded, and after every reset again.
const bool ExportStylesAdded = (Application::instance().addStyles(DefineExportStyles), true);

} // namespace

ExportSettings CurrentExportSettings()
{
    ExportSettings settings;
    settings.format = Read<ExportFormat_e>("ExportFormat");
    settings.region = Read<ExportRegion_e>("ExportRegion");
    settings.imageWidth = Read<int>("ImageWidth");
    settings.animationSpeed = Read<double>("AnimationSpeed");
    settings.supersample = Read<bool>("UseSuperSampleAntiAliasing");
    settings.supersampleFactor = Read<int>("SuperSampleFactor");
    settings.aviCompression = Read<AVICompression_e>("AVICompression");
    settings.flashImageType = Read<FlashImageType_e>("FlashImageType");
    settings.flashCompression = Read<FlashCompressionType_e>("FlashCompressionType");
    settings.fileName = Read<std::string>("ExportFName");
    return settings;
}

bool IsAnimationFormat(ExportFormat_e format)
{
    const auto found = std::find_if(FormatKeywords.begin(), FormatKeywords.end(),
                                    [format](const Keyword& keyword) { return keyword.value == format; });
    return found != FormatKeywords.end() && found->animation;
}

SetValueReturnCode_e SetExportValue(const std::string& name, double number, ArbParam_t any, std::string& why)
{
    const SettingInfo* info = FindSetting(name);
    if (!info)
    {
        why = "unknown export setting " + name;
        return SetValueReturnCode_InvalidName;
    }
    switch (info->kind)
    {
    case ValueKind::Enumeration:
    case ValueKind::Integer:
        return Write(*info, static_cast<int>(any), why);
    case ValueKind::Double:
        return Write(*info, number, why);
    case ValueKind::Boolean:
        return Write(*info, any != 0, why);
    case ValueKind::Text:
        if (any == 0)
        {
            why = "no file name";
            return SetValueReturnCode_InvalidValue;
        }
        return Write(*info, std::string(reinterpret_cast<const char*>(any)), why);
    }
    return SetValueReturnCode_InvalidName;
}

SetValueReturnCode_e SetExportValueFromText(const std::string& name, const std::string& text,
                                            std::string& why)
{
    const SettingInfo* info = FindSetting(name);
    if (!info)
    {
        why = "unknown export setting " + name;
        return SetValueReturnCode_InvalidName;
    }
    const std::string value = Trimmed(text);
    const auto refuse = [&](const std::string& expected)
    {
        why = "'" + value + "' is not " + expected + " for " + info->name;
        return SetValueReturnCode_InvalidValue;
    };
    switch (info->kind)
    {
    case ValueKind::Enumeration:
        for (const Keyword& keyword : *info->keywords)
            if (SameName(value, keyword.text))
                return Write(*info, keyword.value, why);
        return refuse("a keyword");
    case ValueKind::Integer:
    {
        char* end = nullptr;
        const long number = std::strtol(value.c_str(), &end, 10);
        if (value.empty() || *end != '\0' || number < -2147483647L || number > 2147483647L)
            return refuse("a whole number");
        return Write(*info, static_cast<int>(number), why);
    }
    case ValueKind::Double:
    {
        char* end = nullptr;
        const double number = std::strtod(value.c_str(), &end);
        if (value.empty() || *end != '\0')
            return refuse("a number");
        return Write(*info, number, why);
    }
    case ValueKind::Boolean:
        if (SameName(value, "true") || value == "1")
            return Write(*info, true, why);
        if (SameName(value, "false") || value == "0")
            return Write(*info, false, why);
        return refuse("true or false");
    case ValueKind::Text:
        if (value.size() >= 2 && value.front() == '"' && value.back() == '"')
            return Write(*info, value.substr(1, value.size() - 2), why);
        return refuse("a quoted file name");
    }
    return SetValueReturnCode_InvalidName;
}

} // namespace vantix::host::detail
