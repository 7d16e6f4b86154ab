// Drawing, the status line and macro recording.
#include "core/Application.h"
#include "core/CallContext.h"
#include "macro/MacroText.h"

using vantix::host::detail::Application;
using vantix::host::detail::Call;
using vantix::host::detail::Enter;

extern "C"
{

    void VtxUtilDrawGraphics(Boolean doDrawing)
    {
        Enter(Call::DrawGraphics).drawing().suspend(!doDrawing);
    }

    Boolean VtxUtilRedraw(Boolean doFullDrawing)
    {
        (void)doFullDrawing;
        return Enter(Call::Redraw).redraw() ? TRUE : FALSE;
    }

    Boolean VtxUtilStatusStartPercentDone(const char* text, Boolean showStopButton, Boolean showProgressBar)
    {
        Enter(Call::StatusStartPercentDone)
            .status()
            .start(text, showStopButton != FALSE, showProgressBar != FALSE);
        return TRUE;
    }

    void VtxUtilStatusSetPercentDoneText(const char* text)
    {
        Enter(Call::StatusSetPercentDoneText).status().setText(text);
    }

    Boolean VtxUtilStatusCheckPercentDone(int percentDone)
    {
        return Enter(Call::StatusCheckPercentDone).status().check(percentDone) ? TRUE : FALSE;
    }

    void VtxUtilStatusFinishPercentDone(void)
    {
        Enter(Call::StatusFinishPercentDone).status().finish();
    }

    Boolean VtxUtilMacroIsRecordingActive(void)
    {
        return Enter(Call::MacroIsRecordingActive).macroRecording() ? TRUE : FALSE;
    }

    Boolean VtxUtilMacroRecordRawCommand(const char* command)
    {
        return Enter(Call::MacroRecordRawCommand).recordMacroLine(command ? command : "") ? TRUE : FALSE;
    }

    Boolean VtxUtilMacroRecordExtCommand(const char* addOnIDString, const char* command)
    {
        Application& app = Enter(Call::MacroRecordExtCommand);
        using vantix::host::detail::QuoteMacroText;
        return app.recordMacroLine(
                   "$!ADDONCOMMAND ADDONID = " + QuoteMacroText(addOnIDString ? addOnIDString : "", '\'') +
                   " COMMAND = " + QuoteMacroText(command ? command : "", '\''))
                   ? TRUE
                   : FALSE;
    }

} // extern "C"
