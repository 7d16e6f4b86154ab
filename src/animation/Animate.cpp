#include "animation/Animate.h"

#include "animation/AnimateRecording.h"
#include "animation/AnimationManager.h"
#include "animation/Status.h"
#include "core/KeyFrame.h"
#include "core/KeyFrameError.h"
#include "core/Settings.h"
#include "platform/HostGuards.h"

#include <VtxUtil.h>
#include <vantix/toolbox/StyleValue.h>

#include <new>
#include <stdexcept>

namespace vantix::vtxutiltools
{

namespace
{

// Too many frames for memory, and a range of frames that does not exist, come to the user as one message.
const char* const NotEnoughMemoryMessage =
    "Not enough memory to produce the animation.\nTry reducing the number of total frames in the animation.";

// Keeps the host's display lists off while it exists and then puts the setting back: every frame of an
// animation differs from the one before, so the lists would be rebuilt for each frame and never reused.
class DisableDisplayLists
{
public:
    DisableDisplayLists()
        : m_style("Interface"),
          m_useDisplayListsIDs(m_style.initMacroIDsfromStyleValueNames("UseDisplayLists"))
    {
        m_style.getValue(&m_savedUseDisplayLists, -1, -1, m_useDisplayListsIDs);
        m_style.setValue(false, nullptr, -1, -1, m_useDisplayListsIDs);
    }

    ~DisableDisplayLists()
    {
        m_style.setValue(m_savedUseDisplayLists, nullptr, -1, -1, m_useDisplayListsIDs);
    }

    DisableDisplayLists(const DisableDisplayLists&) = delete;
    DisableDisplayLists& operator=(const DisableDisplayLists&) = delete;

private:
    vantix::toolbox::StyleValue m_style;
    vantix::toolbox::StyleValue::MacroIDs m_useDisplayListsIDs;
    bool m_savedUseDisplayLists = true; // the host's own default, kept should the setting not be readable
};

void DrawFrames(const std::vector<KeyFrame_s>& keyFrames, std::size_t firstKeyFrame, std::size_t keyFrameSpan,
                const Settings_s& settings, MacroOption_e macroOption)
{
    // Declared in the order of building; leaving this function tears them down in reverse: the display
    // lists first, then the progress line, then the chain.
    AnimationManager manager(keyFrames, firstKeyFrame, keyFrameSpan, settings);
    Status status("Animating....", Status::AllowCancel, manager.numFrames());
    DisableDisplayLists displayLists;

    // The cancel request is looked at after each frame, so the frame during which the user asked to stop
    // is drawn in full.
    bool canceled = false;
    while (manager.hasNextFrame() && !canceled)
    {
        manager.drawNextFrame();
        ++status;
        canceled = status.isCanceled();
    }

    if (canceled)
    {
        manager.cancelAnimation();
        VtxUtilRedraw(TRUE);
        throw KeyFrameError("Animation canceled.");
    }

    if (macroOption == RecordMacro && VtxUtilMacroIsRecordingActive())
        RecordAnimateCommand(settings.destination);
}

} // namespace

void Animate(const std::vector<KeyFrame_s>& keyFrames, std::size_t firstKeyFrame, std::size_t keyFrameSpan,
             const Settings_s& settings, MacroOption_e macroOption)
{
    HostLock lock;

    if (VtxUtilFrameGetPlotType() != PlotType_Cartesian3D)
        throw KeyFrameError("The current frame must be in 3D Cartesian mode.");

    // Caught only once everything built for the animation is torn down again.
    try
    {
        DrawFrames(keyFrames, firstKeyFrame, keyFrameSpan, settings, macroOption);
    }
    catch (const std::bad_alloc&)
    {
        throw KeyFrameError(NotEnoughMemoryMessage);
    }
    catch (const std::logic_error&)
    {
        throw KeyFrameError(NotEnoughMemoryMessage);
    }
}

} // namespace vantix::vtxutiltools
