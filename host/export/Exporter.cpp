#include "export/Exporter.h"

#include "core/Application.h"
#include "export/ExportSession.h"

#include <exception>
#include <memory>

namespace vantix::host::detail
{

namespace
{

// The export of the host state: the one in progress, and why the last operation failed. A reset abandons
// an export that is still open.
struct ExportState : HostPart
{
    std::unique_ptr<ExportSession> open; // null when none
    std::string lastError;

    void reset() override
    {
        open.reset();
        lastError.clear();
    }
};

ExportState& State()
{
    return Application::instance().part<ExportState>();
}

bool Fail(const std::string& why)
{
    State().lastError = why;
    return false;
}

// Runs a step of the export; an exception it throws is its failure, told in its words.
template <typename Step>
bool Attempt(Step&& step)
{
    try
    {
        step();
        return true;
    }
    catch (const std::exception& error)
    {
        return Fail(error.what());
    }
}

} // namespace

bool StartExport()
{
    ExportState& state = State();
    if (state.open)
        return Fail("an export is already in progress");
    auto session = std::make_unique<ExportSession>();
    return Attempt(
        [&]
        {
            session->settings = CurrentExportSettings();
            if (!IsAnimationFormat(session->settings.format))
                throw ExportError("the export format does not hold an animation");
            if (session->settings.fileName.empty())
                throw ExportError("no export file name is set");
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
            session->writer = std::make_unique<BackgroundFrameWriter>(OpenFrameWriter(options));
            session->drawFrame();
            state.open = std::move(session);
            state.lastError.clear();
        });
}

bool AddExportFrame()
{
    ExportSession* session = State().open.get();
    if (!session)
        return Fail("no export is in progress");
    return Attempt([session] { session->drawFrame(); });
}

bool FinishExport()
{
    if (!State().open)
        return Fail("no export is in progress");
    // The session is closed whatever happens: a file that cannot be completed is removed with it.
    const std::unique_ptr<ExportSession> session = std::move(State().open);
    return Attempt([&session] { session->finish(); });
}

std::string CancelExport()
{
    const std::unique_ptr<ExportSession> session = std::move(State().open);
    return session ? session->settings.fileName : "";
}

bool ExportIsOpen()
{
    return State().open != nullptr;
}

const std::string& LastExportError()
{
    return State().lastError;
}

} // namespace vantix::host::detail
