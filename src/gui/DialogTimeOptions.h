// The modal dialog "Time Animation Options": how solution time runs during a key frame animation (the
// operation, and the number of cycles that Loop and Bounce make). It edits a record its caller owns, only
// on OK, and tells the caller through the function given at launch when it closes: true after OK, false
// after Cancel. OK also switches concurrent time animation on, since that is what the user asked for.
//
// One instance, made on first use. The add-on's host lock is held for the whole time the dialog is up.
#pragma once

#include "core/Settings.h"
#include "gui/TextFieldValidator.h"
#include "platform/HostGuards.h"

#include <boost/function.hpp>

#include <map>
#include <optional>

class DialogTimeOptions
{
public:
    using TimeAnimationOptions_s = vantix::vtxutiltools::TimeAnimationOptions_s;
    using TimeAnimationOperation_e = vantix::vtxutiltools::TimeAnimationOperation_e;

    static DialogTimeOptions& instance();

    DialogTimeOptions(const DialogTimeOptions&) = delete;
    DialogTimeOptions& operator=(const DialogTimeOptions&) = delete;

    // Shows the dialog on options, which must outlive it; onDropped is called once when it closes.
    static void launch(TimeAnimationOptions_s& options, const boost::function<void(bool)>& onDropped);
    static bool okToLaunch(long /*unused*/) { return true; }

    static void init_CB();
    // The cycle count means something for Loop and Bounce only.
    static void updateSensitivities(TimeAnimationOperation_e operation);
    static void animationOperation_RADIO_CB(const int* position);
    static int numCycles_TFS_ValueChanged_CB(const char* text);
    static void numCycles_TFS_ButtonUp_CB();
    static void numCycles_TFS_ButtonDown_CB();
    static void ok_BTN_CB();
    static void cancel_BTN_CB();
    static void drop();
    static void help_BTN_CB();

private:
    DialogTimeOptions();
    // Radio button positions, counted from 1, to the operations they stand for.
    void initAnimationMap();
    void stepCycles(int step);

    vantix::vtxutiltools::TextFieldValidator<int> m_numCyclesValidator;
    // Borrowed from the caller while the dialog is up; null while it is down.
    TimeAnimationOptions_s* m_options = nullptr;
    std::map<int, TimeAnimationOperation_e> m_animationMap;
    boost::function<void(bool)> m_onDropped;
    // Taken by launch, given back by drop, however the dialog closes.
    std::optional<vantix::vtxutiltools::HostLock> m_dialogLock;
};
