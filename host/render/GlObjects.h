// Move-only owners of OpenGL objects. Each is created in the renderer's context and deleted in it; the
// renderer keeps its context current for as long as any of them lives.
#pragma once

#include "render/Gl.h"

#include <string>
#include <utility>

namespace vantix::host::detail
{

template <typename Kind>
class GlObject
{
public:
    GlObject() : m_id(Kind::create()) {}
    ~GlObject()
    {
        if (m_id != 0)
            Kind::destroy(m_id);
    }
    GlObject(GlObject&& other) noexcept : m_id(std::exchange(other.m_id, 0)) {}
    GlObject& operator=(GlObject&& other) noexcept
    {
        if (this != &other)
        {
            if (m_id != 0)
                Kind::destroy(m_id);
            m_id = std::exchange(other.m_id, 0);
        }
        return *this;
    }
    GlObject(const GlObject&) = delete;
    GlObject& operator=(const GlObject&) = delete;

    GLuint id() const { return m_id; }

private:
    GLuint m_id = 0;
};

struct GlBufferKind
{
    static GLuint create()
    {
        GLuint id = 0;
        glGenBuffers(1, &id);
        return id;
    }
    static void destroy(GLuint id) { glDeleteBuffers(1, &id); }
};

struct GlVertexArrayKind
{
    static GLuint create()
    {
        GLuint id = 0;
        glGenVertexArrays(1, &id);
        return id;
    }
    static void destroy(GLuint id) { glDeleteVertexArrays(1, &id); }
};

struct GlTextureKind
{
    static GLuint create()
    {
        GLuint id = 0;
        glGenTextures(1, &id);
        return id;
    }
    static void destroy(GLuint id) { glDeleteTextures(1, &id); }
};

struct GlFramebufferKind
{
    static GLuint create()
    {
        GLuint id = 0;
        glGenFramebuffers(1, &id);
        return id;
    }
    static void destroy(GLuint id) { glDeleteFramebuffers(1, &id); }
};

struct GlRenderbufferKind
{
    static GLuint create()
    {
        GLuint id = 0;
        glGenRenderbuffers(1, &id);
        return id;
    }
    static void destroy(GLuint id) { glDeleteRenderbuffers(1, &id); }
};

struct GlProgramKind
{
    static GLuint create() { return glCreateProgram(); }
    static void destroy(GLuint id) { glDeleteProgram(id); }
};

using GlBuffer = GlObject<GlBufferKind>;
using GlVertexArray = GlObject<GlVertexArrayKind>;
using GlTexture = GlObject<GlTextureKind>;
using GlFramebuffer = GlObject<GlFramebufferKind>;
using GlRenderbuffer = GlObject<GlRenderbufferKind>;
using GlProgramObject = GlObject<GlProgramKind>;

} // namespace vantix::host::detail
