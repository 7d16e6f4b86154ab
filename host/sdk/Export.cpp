// Export of the page into image and movie files.
#include "core/Application.h"
#include "export/ExportSetup.h"
#include "export/Exporter.h"

#include <cstdio>

using vantix::host::detail::Application;
using vantix::host::detail::Call;

extern "C"
{

    Boolean VtxUtilExportSetup(const char* name, const char* subName, double doubleValue, ArbParam_t anyValue)
    {
        (void)subName;
        Application& app = Application::instance();
        app.note(Call::ExportSetup);
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
        Application& app = Application::instance();
        app.note(Call::ExportIsRecording);
        return app.m_export ? TRUE : FALSE;
    }

    Boolean VtxUtilExportStart(void)
    {
        Application::instance().note(Call::ExportStart);
        return vantix::host::detail::StartExport() ? TRUE : FALSE;
    }

    Boolean VtxUtilExportNextFrame(void)
    {
        Application::instance().note(Call::ExportNextFrame);
        return vantix::host::detail::AddExportFrame() ? TRUE : FALSE;
    }

    Boolean VtxUtilExportFinish(void)
    {
        Application::instance().note(Call::ExportFinish);
        return vantix::host::detail::FinishExport() ? TRUE : FALSE;
    }

    void VtxUtilExportCancel(void)
    {
        Application::instance().note(Call::ExportCancel);
        vantix::host::detail::CancelExport();
    }

} // extern "C"
