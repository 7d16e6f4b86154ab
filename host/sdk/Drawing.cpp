// Drawing, the status line and macro recording.
#include "core/Application.h"
#include "macro/MacroText.h"

using vantix::host::detail::Application;
using vantix::host::detail::Call;

extern "C"
{

    void VtxUtilDrawGraphics(Boolean doDrawing)
    {
        Application& app = Application::instance();
        app.note(Call::DrawGraphics);
        app.suspendDrawing(!doDrawing);
    }

    Boolean VtxUtilRedraw(Boolean doFullDrawing)
    {
        (void)doFullDrawing;
        Application& app = Application::instance();
        app.note(Call::Redraw);
        return app.redraw() ? TRUE : FALSE;
    }

    Boolean VtxUtilStatusStartPercentDone(const char* text, Boolean showStopButton, Boolean showProgressBar)
    {
        Application& app = Application::instance();
        app.note(Call::StatusStartPercentDone);
        app.statusStart(text, showStopButton != FALSE, showProgressBar != FALSE);
        return TRUE;
    }

    void VtxUtilStatusSetPercentDoneText(const char* text)
    {
        Application& app = Application::instance();
        app.note(Call::StatusSetPercentDoneText);
        app.statusSetText(text);
    }

    Boolean VtxUtilStatusCheckPercentDone(int percentDone)
    {
        Application& app = Application::instance();
        app.note(Call::StatusCheckPercentDone);
        return app.statusCheck(percentDone) ? TRUE : FALSE;
    }

    void VtxUtilStatusFinishPercentDone(void)
    {
        Application& app = Application::instance();
        app.note(Call::StatusFinishPercentDone);
        app.statusFinish();
    }

    Boolean VtxUtilMacroIsRecordingActive(void)
    {
        Application& app = Application::instance();
        app.note(Call::MacroIsRecordingActive);
        return app.m_macroRecording ? TRUE : FALSE;
    }

    Boolean VtxUtilMacroRecordRawCommand(const char* command)
    {
        Application& app = Application::instance();
        app.note(Call::MacroRecordRawCommand);
        return app.recordMacroLine(command ? command : "") ? TRUE : FALSE;
    }

    Boolean VtxUtilMacroRecordExtCommand(const char* addOnIDString, const char* command)
    {
        Application& app = Application::instance();
        app.note(Call::MacroRecordExtCommand);
        using vantix::host::detail::QuoteMacroText;
        return app.recordMacroLine(
                   "$!ADDONCOMMAND ADDONID = " + QuoteMacroText(addOnIDString ? addOnIDString : "", '\'') +
                   " COMMAND = " + QuoteMacroText(command ? command : "", '\''))
                   ? TRUE
                   : FALSE;
    }

} // extern "C"
