#include "render/OffscreenContext.h"

#include "render/Gl.h"

#include <EGL/eglext.h>

#include <cstdio>
#include <cstring>
#include <stdexcept>

namespace vantix::host::detail
{

namespace
{

[[noreturn]] void Fail(const std::string& step)
{
    char code[32];
    std::snprintf(code, sizeof code, " (EGL error 0x%04x)", static_cast<unsigned>(eglGetError()));
    throw std::runtime_error("cannot make an offscreen OpenGL context: " + step + code);
}

bool HasExtension(const char* extensions, const char* name)
{
    if (!extensions)
        return false;
    const std::size_t length = std::strlen(name);
    for (const char* at = std::strstr(extensions, name); at; at = std::strstr(at + 1, name))
        if ((at == extensions || at[-1] == ' ') && (at[length] == ' ' || at[length] == '\0'))
            return true;
    return false;
}

} // namespace

OffscreenContext::OffscreenContext()
{
    const char* clientExtensions = eglQueryString(EGL_NO_DISPLAY, EGL_EXTENSIONS);
    if (!HasExtension(clientExtensions, "EGL_MESA_platform_surfaceless"))
        Fail("EGL has no surfaceless platform (EGL_MESA_platform_surfaceless)");
    const auto getPlatformDisplay =
        reinterpret_cast<PFNEGLGETPLATFORMDISPLAYEXTPROC>(eglGetProcAddress("eglGetPlatformDisplayEXT"));
    if (!getPlatformDisplay)
        Fail("EGL has no eglGetPlatformDisplayEXT");
    m_display = getPlatformDisplay(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr);
    if (m_display == EGL_NO_DISPLAY)
        Fail("no surfaceless display");
    EGLint major = 0, minor = 0;
    if (!eglInitialize(m_display, &major, &minor))
    {
        m_display = EGL_NO_DISPLAY;
        Fail("the surfaceless display does not initialise (is libgl1-mesa-dri installed?)");
    }
    try
    {
        const char* extensions = eglQueryString(m_display, EGL_EXTENSIONS);
        if (!HasExtension(extensions, "EGL_KHR_no_config_context") ||
            !HasExtension(extensions, "EGL_KHR_surfaceless_context"))
            Fail("the display lacks EGL_KHR_no_config_context or EGL_KHR_surfaceless_context");
        if (!eglBindAPI(EGL_OPENGL_API))
            Fail("EGL does not offer desktop OpenGL");
        const EGLint attributes[] = {EGL_CONTEXT_MAJOR_VERSION,
                                     3,
                                     EGL_CONTEXT_MINOR_VERSION,
                                     3,
                                     EGL_CONTEXT_OPENGL_PROFILE_MASK,
                                     EGL_CONTEXT_OPENGL_CORE_PROFILE_BIT,
                                     EGL_NONE};
        m_context = eglCreateContext(m_display, EGL_NO_CONFIG_KHR, EGL_NO_CONTEXT, attributes);
        if (m_context == EGL_NO_CONTEXT)
            Fail("no OpenGL 3.3 core profile context");
        makeCurrent();
    }
    catch (...)
    {
        if (m_context != EGL_NO_CONTEXT)
            eglDestroyContext(m_display, m_context);
        eglTerminate(m_display);
        throw;
    }
    const auto text = [](GLenum name)
    {
        const auto* value = reinterpret_cast<const char*>(glGetString(name));
        return std::string(value ? value : "?");
    };
    m_description = text(GL_RENDERER) + ", OpenGL " + text(GL_VERSION);
}

OffscreenContext::~OffscreenContext()
{
    eglMakeCurrent(m_display, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
    eglDestroyContext(m_display, m_context);
    // The display is left initialised: it is the process's one connection to EGL (eglGetPlatformDisplay
    // hands the same one to every caller), and Mesa's eglTerminate unloads the driver leaving some of
    // its memory behind, which the leak checker of the sanitizer build reports.
}

void OffscreenContext::makeCurrent()
{
    if (eglGetCurrentContext() == m_context)
        return;
    if (!eglMakeCurrent(m_display, EGL_NO_SURFACE, EGL_NO_SURFACE, m_context))
        Fail("the context cannot be made current (is another context current on this thread?)");
}

} // namespace vantix::host::detail
