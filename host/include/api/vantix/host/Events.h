// The host's own API over its events: the on-idle queue and state changes.
//
// The host runs the on-idle queue when it is idle: the macro runner after each command, the desktop
// program after its events, and tests when they say so. State changes are raised where they happen (a
// frame made, deleted or activated, a style or view setting written, a plot type changed, a data set
// loaded, zones enabled) and reach, at once and in this order, every callback registered with
// VtxUtilStateChangeAddCallbackX (in the order registered) and every vantix::toolbox::StateChangeNotifier
// with listeners (in the order the notifiers were made).
#pragma once

#include <VtxUtil.h>

#include <cstddef>
#include <vector>

namespace vantix::host
{

// ---- The on-idle queue ---------------------------------------------------------------------------------
// One idle moment: runs the calls queued before it began, oldest first. Calls queued while it runs wait
// for the next idle moment. Answers how many ran. Throws std::logic_error when called from a call the
// queue is running.
int runOnIdle();
// Idle moments one after the other until the queue is empty or maxRounds have run; answers how many calls
// ran. The macro runner does this after each command.
int runOnIdleUntilEmpty(int maxRounds = 100);
// Calls queued and not run yet. A reset keeps them: each add-on counts on every call it queued running once.
std::size_t pendingOnIdleCalls();

// ---- State changes -------------------------------------------------------------------------------------
// Raises a state change as the host would: logged, then delivered.
void raiseStateChange(StateChange_e change);
// The changes raised since the last reset or clear (the latest 65,536 at least), oldest first.
std::vector<StateChange_e> raisedStateChanges();
void clearRaisedStateChanges();
// Callbacks registered with VtxUtilStateChangeAddCallbackX; they last for the whole process.
std::size_t stateChangeCallbackCount();
// Listeners added to the toolbox's notifiers now, over all notifiers.
std::size_t stateChangeListenerCount();

// ---- Argument lists ------------------------------------------------------------------------------------
// Argument lists (VtxUtilArgListAlloc, vantix::toolbox::ArgList) not yet released. After a reset the
// count starts again; lists made before stay valid and can still be released.
long outstandingArgLists();

} // namespace vantix::host
