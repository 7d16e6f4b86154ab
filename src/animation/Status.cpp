#include "animation/Status.h"

#include <VtxUtil.h>

namespace vantix::vtxutiltools
{

void Status::start(const std::string& message, bool hasSteps) const
{
    const Boolean showProgress = hasSteps ? TRUE : FALSE;
    VtxUtilStatusStartPercentDone(buildStatusMessage(message).c_str(), showProgress, showProgress);
}

Status::~Status()
{
    VtxUtilStatusFinishPercentDone();
}

std::string Status::buildStatusMessage(const std::string& message) const
{
    if (m_cancelOption == NoCancelHint)
        return message;
    return message + m_cancelHint;
}

void Status::setMessage(const std::string& message) const
{
    VtxUtilStatusSetPercentDoneText(buildStatusMessage(message).c_str());
}

Status& Status::operator++()
{
    m_done += 1.0;
    update();
    return *this;
}

void Status::update()
{
    if (!(m_total > 0.0))
        return;
    const double percent = m_done / m_total * 100.0;
    const int percentDone = percent > 100.0 ? 100 : static_cast<int>(percent);
    m_canceled = !VtxUtilStatusCheckPercentDone(percentDone);
}

} // namespace vantix::vtxutiltools
