#pragma once

#include <string>

namespace vantix::vtxutiltools
{

// The host's progress line for one long operation, shown from construction to destruction. Each step
// counted updates the percentage and asks the host whether the user wants to stop; the answer is kept
// in isCanceled().
class Status
{
public:
    enum CancelOption
    {
        // Every message shown is followed by the hint telling how to cancel.
        AllowCancel = 0,
        // The message is shown alone; a cancel request is still noticed.
        NoCancelHint = 1
    };

    // total is the number of steps the operation will take. With no steps there is no percentage to
    // show, and the host is never asked about a cancel.
    template <typename T>
    Status(const std::string& message, CancelOption option, const T& total);
    ~Status();

    Status(const Status&) = delete;
    Status& operator=(const Status&) = delete;

    std::string buildStatusMessage(const std::string& message) const;
    void setMessage(const std::string& message) const;

    // Counts one step, then checks.
    Status& operator++();
    // Checks without counting a step.
    void update();
    bool isCanceled() const { return m_canceled; }

private:
    void start(const std::string& message, bool hasSteps) const;

    double m_total;
    double m_done = 0.0;
    bool m_canceled = false;
    CancelOption m_cancelOption;
    std::string m_cancelHint;
};

template <typename T>
Status::Status(const std::string& message, CancelOption option, const T& total)
    : m_total(static_cast<double>(total)), m_cancelOption(option),
      m_cancelHint(" Press [Esc] or click [Stop] to cancel.")
{
    start(message, total > 0);
}

} // namespace vantix::vtxutiltools
