#include "core/KeyFrameError.h"

namespace vantix::vtxutiltools
{

KeyFrameError::KeyFrameError(const std::string& message) : m_message(message) {}

KeyFrameError::~KeyFrameError() = default;

const char* KeyFrameError::what() const noexcept
{
    return m_message.c_str();
}

} // namespace vantix::vtxutiltools
