#pragma once

#include "platform/OnIdleManager.h"
#include "platform/StateChangeListener.h"

#include <boost/bind/bind.hpp>

namespace vantix::vtxutiltools
{

// Closes a dialog once the host's state no longer lets it work. A state change after which T::okToLaunch()
// is false queues one check for the next idle moment (a burst of changes queues one); if the state is still
// bad then, T::drop() closes the dialog and listening stops. A state that is good again by then closes
// nothing.
//
// T offers two static operations: okToLaunch(), true when the dialog can work in the host's current state,
// and drop(), which closes the dialog. The dropper listens only after its owner calls
// listener().startListening(), each time the dialog is shown.
//
// A check still queued when the dropper is destroyed does nothing: it belongs to the dropper's
// OnIdleManager, which is gone.
template <typename T>
class DialogDropper
{
public:
    explicit DialogDropper(T& dialog);
    virtual ~DialogDropper() = default;

    DialogDropper(const DialogDropper&) = delete;
    DialogDropper& operator=(const DialogDropper&) = delete;

    StateChangeListener& listener() { return m_listener; }

    void stateChanged(const vantix::toolbox::StateChangeEventInterface& event,
                      vantix::toolbox::StateChangeNotifierInterface& notifier);
    void onIdleCallback();

private:
    T& m_dialog;
    // Declared in this order so that the idle manager goes first, then the listener.
    StateChangeListener m_listener;
    OnIdleManager m_idleManager;
};

template <typename T>
DialogDropper<T>::DialogDropper(T& dialog)
    : m_dialog(dialog), m_listener(boost::bind(&DialogDropper::stateChanged, this, boost::placeholders::_1,
                                               boost::placeholders::_2))
{
}

template <typename T>
void DialogDropper<T>::stateChanged(const vantix::toolbox::StateChangeEventInterface& /*event*/,
                                    vantix::toolbox::StateChangeNotifierInterface& /*notifier*/)
{
    if (T::okToLaunch())
        return;
    m_idleManager.addCallback(boost::bind(&DialogDropper::onIdleCallback, this));
}

template <typename T>
void DialogDropper<T>::onIdleCallback()
{
    if (T::okToLaunch())
        return;
    T::drop();
    m_listener.stopListening();
}

} // namespace vantix::vtxutiltools
