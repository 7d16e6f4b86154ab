// An OpenGL 3.3 core context without a window or a display server: EGL on Mesa's surfaceless platform,
// drawing into framebuffer objects only.
#pragma once

#include <EGL/egl.h>

#include <string>

namespace vantix::host::detail
{

class OffscreenContext
{
public:
    // Throws std::runtime_error naming the step that failed (no surfaceless platform, no software
    // rasteriser installed, no core profile, ...).
    OffscreenContext();
    // Destroys the context; the EGL display stays initialised (see the definition).
    ~OffscreenContext();
    OffscreenContext(const OffscreenContext&) = delete;
    OffscreenContext& operator=(const OffscreenContext&) = delete;

    // Makes the context current on this thread. Another context may have been made current since (a
    // window's, in the desktop program), so the renderer calls this before each picture.
    void makeCurrent();
    // The GL implementation, for example "llvmpipe (LLVM 15.0.6, 256 bits), OpenGL 4.5 (Core Profile)".
    const std::string& description() const { return m_description; }

private:
    EGLDisplay m_display = EGL_NO_DISPLAY;
    EGLContext m_context = EGL_NO_CONTEXT;
    std::string m_description;
};

} // namespace vantix::host::detail
