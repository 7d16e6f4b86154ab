// What OK of the export options dialog does with the choices: each goes to the host's export setup under
// the host's own setting name and, while the host records a macro, into a "$!EXPORTSETUP" line, so that a
// replayed macro sets the export up as the user did before the animation that follows it runs.
#include "gui/DialogExportOptions.h"

#include "platform/AddOnID.h"
#include "platform/HostGuards.h"

#include <VtxUtil.h>

#include <boost/format.hpp>

#include <locale>
#include <sstream>

using vantix::vtxutiltools::HostLock;

void DialogExportOptions::setExportFormat(ExportFormat_e format)
{
    setExportEnumValue("ExportFormat", format, m_exportFormatKeywords.at(format));
}

void DialogExportOptions::setExportRegion(ExportRegion_e region)
{
    setExportEnumValue("ExportRegion", region, m_exportRegionKeywords.at(region));
}

void DialogExportOptions::setExportAVIOptions(AVICompression_e compression)
{
    setExportEnumValue("AVICompression", compression, m_aviCompressionKeywords.at(compression));
}

void DialogExportOptions::setExportFlashOptions(FlashImageType_e imageType,
                                                std::optional<FlashCompressionType_e> compression)
{
    setExportEnumValue("FlashImageType", imageType, m_flashImageTypeKeywords.at(imageType));
    // Neither optimisation chosen: the host keeps its compression type and nothing is recorded. The host
    // reads only keywords for it on replay, so a number would stop the replay; without the line the replay
    // keeps the host's type, as the export itself does.
    if (compression)
        setExportEnumValue("FlashCompressionType", *compression,
                           m_flashCompressionTypeKeywords.at(*compression));
}

// The height follows from the width and the region's aspect ratio when the host exports.
void DialogExportOptions::setExportImageWidth()
{
    int width = 0;
    int height = 0;
    determineImageDimensions(width, height);
    setExportIntegerValue("ImageWidth", width);
}

void DialogExportOptions::setExportAnimationSpeed(double speed)
{
    setExportDoubleValue("AnimationSpeed", speed);
}

// The factor is left as the host has it when antialiasing is off.
void DialogExportOptions::setExportAntialiasingOptions(bool on, int factor)
{
    setExportIntegerValue("UseSuperSampleAntiAliasing", on);
    if (on)
        setExportIntegerValue("SuperSampleFactor", factor);
}

// Quoted in the macro: the host's macro reader takes a file name, blanks and all, only between quotation
// marks.
void DialogExportOptions::setExportFilename(const std::string& fileName)
{
    {
        const HostLock lock;
        VtxUtilExportSetup("ExportFName", nullptr, 0.0, reinterpret_cast<ArbParam_t>(fileName.c_str()));
    }
    recordExportMacroCommand("ExportFName", (boost::format("\"%1%\"") % fileName).str());
}

template <typename T>
void DialogExportOptions::setExportEnumValue(const char* name, T value, const std::string& keyword)
{
    const HostLock lock;
    VtxUtilExportSetup(name, nullptr, 0.0, static_cast<ArbParam_t>(value));
    recordExportMacroCommand(name, keyword);
}

template <typename T>
void DialogExportOptions::setExportIntegerValue(const char* name, T value)
{
    const HostLock lock;
    VtxUtilExportSetup(name, nullptr, 0.0, static_cast<ArbParam_t>(value));
    recordExportMacroCommand(name, value);
}

void DialogExportOptions::setExportDoubleValue(const char* name, double value)
{
    const HostLock lock;
    VtxUtilExportSetup(name, nullptr, value, 0);
    recordExportMacroCommand(name, value);
}

// A switch is written true or false and a number as the stream writes it by default (six significant
// digits: 30, 12.5, 0.001), with a decimal point whatever the process's locale.
template <typename T>
void DialogExportOptions::recordExportMacroCommand(const char* name, const T& value)
{
    if (!VtxUtilMacroIsRecordingActive())
        return;
    std::ostringstream command;
    command.imbue(std::locale::classic());
    command << std::boolalpha << "$!EXPORTSETUP " << name << " = " << value;
    const HostLock lock;
    VtxUtilMacroRecordRawCommand(command.str().c_str());
}
