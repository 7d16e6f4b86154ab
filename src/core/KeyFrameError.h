#pragma once

#include <exception>
#include <string>

namespace vantix::vtxutiltools
{

// The add-on's one exception type: every failure the user is to read, in the add-on's own words. Callers
// that the host called in catch it and show what() to the user.
class KeyFrameError : public std::exception
{
public:
    explicit KeyFrameError(const std::string& message);
    ~KeyFrameError() override;

    const char* what() const noexcept override;

private:
    std::string m_message;
};

} // namespace vantix::vtxutiltools
