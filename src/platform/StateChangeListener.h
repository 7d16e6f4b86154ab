#pragma once

#include <vantix/toolbox/StateChangeListenerInterface.h>
#include <vantix/toolbox/StateChangeNotifier.h>

#include <boost/function.hpp>

namespace vantix::vtxutiltools
{

// Hands the host's state changes to a stored function, under the host lock, while it listens. It listens
// from startListening() until stopListening(), or until the program announces that it is quitting: that
// change is still handed on, then listening stops.
class StateChangeListener : public virtual vantix::toolbox::StateChangeListenerInterface
{
public:
    using Callback = boost::function<void(const vantix::toolbox::StateChangeEventInterface& event,
                                          vantix::toolbox::StateChangeNotifierInterface& notifier)>;

    // Does not listen yet.
    explicit StateChangeListener(const Callback& callback);

    StateChangeListener(const StateChangeListener&) = delete;
    StateChangeListener& operator=(const StateChangeListener&) = delete;

    void startListening();
    void stopListening();

    void stateChanged(const vantix::toolbox::StateChangeEventInterface& event,
                      vantix::toolbox::StateChangeNotifierInterface& notifier) override;
    ~StateChangeListener() override;

private:
    Callback m_callback;
    // Owned, so that the listener can never outlive the notifier that would call it.
    vantix::toolbox::StateChangeNotifier m_notifier;
};

} // namespace vantix::vtxutiltools
