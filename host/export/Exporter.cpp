#include "export/Exporter.h"

#include "core/Application.h"
#include "export/ExportSession.h"

#include <cstdio>

namespace vantix::host::detail
{

namespace
{

bool Fail(const std::string& why)
{
    Application& app = Application::instance();
    app.m_exportError = why;
    std::fprintf(stderr, "vantix: export: %s\n", why.c_str());
    return false;
}

} // namespace

bool StartExport()
{
    Application& app = Application::instance();
    if (app.m_export)
        return Fail("an export is already in progress");
    try
    {
        auto session = std::make_shared<ExportSession>();
        session->settings = CurrentExportSettings();
        if (!IsAnimationFormat(session->settings.format))
            return Fail("the export format does not hold an animation");
        if (session->settings.fileName.empty())
            return Fail("no export file name is set");
        ExportImageSize(session->settings, session->width, session->height);

        MovieOptions options;
        options.format = session->settings.format;
        options.path = session->settings.fileName;
        options.width = session->width;
        options.height = session->height;
        options.framesPerSecond = session->settings.animationSpeed;
        options.aviCompression = session->settings.aviCompression;
        options.flashImageType = session->settings.flashImageType;
        options.flashCompression = session->settings.flashCompression;
        session->writer = OpenFrameWriter(options);
        session->writer->write(RenderExportImage(session->settings, session->width, session->height));
        session->frames = 1;
        app.m_export = std::move(session);
        app.m_exportError.clear();
        return true;
    }
    catch (const std::exception& error)
    {
        return Fail(error.what());
    }
}

bool AddExportFrame()
{
    Application& app = Application::instance();
    if (!app.m_export)
        return Fail("no export is in progress");
    ExportSession& session = *app.m_export;
    try
    {
        session.writer->write(RenderExportImage(session.settings, session.width, session.height));
        ++session.frames;
        return true;
    }
    catch (const std::exception& error)
    {
        return Fail(error.what());
    }
}

bool FinishExport()
{
    Application& app = Application::instance();
    if (!app.m_export)
        return Fail("no export is in progress");
    // The session is closed whatever happens: a file that cannot be completed is removed with it.
    const std::shared_ptr<ExportSession> session = std::move(app.m_export);
    try
    {
        session->writer->finish();
        return true;
    }
    catch (const std::exception& error)
    {
        return Fail(error.what());
    }
}

void CancelExport()
{
    Application::instance().m_export.reset();
}

} // namespace vantix::host::detail
