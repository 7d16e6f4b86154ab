// Keeps every exception inside a dialog callback: the host called in, and nothing may be thrown back to it.
//
// The add-on's own failures (KeyFrameError) are shown to the user in an error dialog as they stand. Any
// other exception is a fault of the add-on, not of the user's input; it is shown too, as one line naming the
// callback and what went wrong, so that the user can report it, and the callback ends there with what it
// had done so far.
#pragma once

#include <string>
#include <utility>

namespace vantix::vtxutiltools
{

// The message of the exception being handled; call it only from a catch block. A KeyFrameError's own
// message; for any other exception one line saying that where failed, and why.
std::string CurrentExceptionMessage(const std::string& where);

// Shows the exception being handled; call it only from a catch block. Never throws.
void ShowCallbackFailure(const char* callback) noexcept;

template <typename Work>
void RunShielded(const char* callback, Work&& work) noexcept
{
    try
    {
        std::forward<Work>(work)();
    }
    catch (...)
    {
        ShowCallbackFailure(callback);
    }
}

// For callbacks that answer the host: what work answers, or onFailure when it threw.
template <typename Result, typename Work>
Result RunShielded(const char* callback, Result onFailure, Work&& work) noexcept
{
    try
    {
        return std::forward<Work>(work)();
    }
    catch (...)
    {
        ShowCallbackFailure(callback);
    }
    return onFailure;
}

} // namespace vantix::vtxutiltools
