// The one host state of a process. Everything the SDK functions, the toolbox and the host's own API do is
// done on this object, on the user-interface thread. The event plumbing below it (host/events) keeps the
// state changes, the on-idle queue and the protocol errors; the parts of the host above it keep theirs in
// it as host parts.
#pragma once

#include "core/AddOns.h"
#include "core/ArgLists.h"
#include "core/CallLog.h"
#include "core/Drawing.h"
#include "core/HostPart.h"
#include "core/HostStrings.h"
#include "core/Page.h"
#include "core/StatusLine.h"
#include "core/StyleTree.h"

#include <atomic>
#include <map>
#include <memory>
#include <string>
#include <typeindex>
#include <vector>

namespace vantix::host::detail
{

class Application
{
public:
    // Made on first use. Every SDK call starts here, so once made it is one load, not a call.
    static Application& instance()
    {
        Application* made = s_instance.load(std::memory_order_acquire);
        return made ? *made : make();
    }

    // Back to a clean host: a new session (no frames, default styles, no recording, no status line,
    // nothing drawn or counted) and every host part reset. Registered add-ons stay, without their locks;
    // host strings and argument lists handed out stay valid, but are counted afresh.
    void reset();

    AddOns& addOns() { return m_addOns; }
    HostStrings& strings() { return m_strings; }
    ArgLists& argLists() { return m_argLists; }

    Page& page() { return m_session->page; }
    StyleTree& style() { return m_session->style; }
    Drawing& drawing() { return m_session->drawing; }
    StatusLine& status() { return m_session->status; }
    CallLog& calls() { return m_session->calls; }
    bool redraw() { return drawing().redraw(page().activeFrame()); }

    bool macroRecording() const { return m_session->macroRecording; }
    void setMacroRecording(bool on) { m_session->macroRecording = on; }
    // False, and nothing recorded, while the host does not record.
    bool recordMacroLine(std::string line);
    const std::vector<std::string>& recordedMacroLines() const { return m_session->macroLines; }

    // The program's progress display: told of every status event; kept across resets.
    void setStatusObserver(StatusLine::Observer observer) { m_statusObserver = std::move(observer); }
    // The desktop's window: told of every redraw that draws; kept across resets.
    void setRedrawObserver(Drawing::Observer observer) { m_redrawObserver = std::move(observer); }
    // Safe from a signal handler (Ctrl-C): the next percent check answers FALSE.
    void requestCancelFromSignal() { m_cancelSignal.store(true); }
    // Whether Ctrl-C came since the last time it was taken; between the commands of a macro no percent check
    // takes it.
    bool takeCancelSignal() { return m_cancelSignal.exchange(false); }

    // Settings that another part of the host defines in the style tree: added now and again after every
    // reset.
    void addStyles(void (*define)(StyleTree& style));

    // A part of the host state kept by the part of the host it belongs to: made on first use, kept for
    // the whole process.
    template <typename Part>
    Part& part()
    {
        std::unique_ptr<HostPart>& slot = m_parts[std::type_index(typeid(Part))];
        if (!slot)
        {
            slot = std::make_unique<Part>();
            if (m_wasReset)
                slot->reset();
        }
        return static_cast<Part&>(*slot);
    }

private:
    // Everything a reset puts back as it was when the host started.
    struct Session
    {
        Session(const StatusLine::Observer& observer, const Drawing::Observer& redrawObserver,
                std::atomic<bool>& cancelSignal)
            : drawing(redrawObserver), status(observer, cancelSignal)
        {
        }

        Page page;
        StyleTree style;
        Drawing drawing;
        StatusLine status;
        CallLog calls;
        bool macroRecording = false;
        std::vector<std::string> macroLines;
    };

    Application();
    static Application& make();
    void startSession();
    void defineStyles();

    // Kept for the whole process; each says what a reset does to it.
    AddOns m_addOns;
    HostStrings m_strings;
    ArgLists m_argLists;
    std::map<std::type_index, std::unique_ptr<HostPart>> m_parts;
    bool m_wasReset = false;
    std::vector<void (*)(StyleTree&)> m_styleDefinitions;
    StatusLine::Observer m_statusObserver;
    Drawing::Observer m_redrawObserver;
    // Outside the session: a signal handler may set it at any moment, so its place never changes.
    std::atomic<bool> m_cancelSignal{false};

    std::unique_ptr<Session> m_session;

    static std::atomic<Application*> s_instance; // null until make() has made the one host state
};

// The one Application, with the SDK function's call counted and traced: the first line of every SDK
// function.
inline Application& Enter(Call call)
{
    Application& app = Application::instance();
    app.calls().note(call);
    return app;
}

} // namespace vantix::host::detail
