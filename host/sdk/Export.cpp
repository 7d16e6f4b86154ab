// Export of the page into image and movie files.
#include "core/Application.h"
#include "core/CallContext.h"
#include "export/ExportSetup.h"
#include "export/Exporter.h"

#include <cstdio>

using vantix::host::detail::Call;
using vantix::host::detail::Enter;

namespace
{

// An add-on hears only FALSE, and tells its own message; why the export failed goes to the program's user
// here, once.
Boolean Told(bool done)
{
    if (!done)
        std::fprintf(stderr, "vantix: export: %s\n", vantix::host::detail::LastExportError().c_str());
    return done ? TRUE : FALSE;
}

} // namespace

extern "C"
{

    Boolean VtxUtilExportSetup(const char* name, const char* subName, double doubleValue, ArbParam_t anyValue)
    {
        (void)subName;
        Enter(Call::ExportSetup);
        std::string why;
        const SetValueReturnCode_e result =
            vantix::host::detail::SetExportValue(name ? name : "", doubleValue, anyValue, why);
        if (result != SetValueReturnCode_Ok && result != SetValueReturnCode_DuplicateValue)
        {
            std::fprintf(stderr, "vantix: export setup: %s\n", why.c_str());
            return FALSE;
        }
        return TRUE;
    }

    Boolean VtxUtilExportIsRecording(void)
    {
        Enter(Call::ExportIsRecording);
        return vantix::host::detail::ExportIsOpen() ? TRUE : FALSE;
    }

    Boolean VtxUtilExportStart(void)
    {
        Enter(Call::ExportStart);
        return Told(vantix::host::detail::StartExport());
    }

    Boolean VtxUtilExportNextFrame(void)
    {
        Enter(Call::ExportNextFrame);
        return Told(vantix::host::detail::AddExportFrame());
    }

    Boolean VtxUtilExportFinish(void)
    {
        Enter(Call::ExportFinish);
        return Told(vantix::host::detail::FinishExport());
    }

    void VtxUtilExportCancel(void)
    {
        Enter(Call::ExportCancel);
        vantix::host::detail::CancelExport();
    }

} // extern "C"
