// A linked vertex and fragment shader pair with its uniforms looked up by name.
#pragma once

#include "render/GlObjects.h"

#include <array>

namespace vantix::host::detail
{

class ShaderProgram
{
public:
    // Throws std::runtime_error with the compiler's or linker's log when the sources do not build.
    ShaderProgram(const char* name, const char* vertexSource, const char* fragmentSource);

    void use() const { glUseProgram(m_program.id()); }
    // Uniform setters of the program in use; a name the program does not have (or optimised away) is
    // ignored, as GL ignores location -1.
    void set(const char* name, float value) const;
    void set(const char* name, int value) const;
    void set(const char* name, float x, float y) const;
    void set(const char* name, float x, float y, float z) const;
    void set(const char* name, float x, float y, float z, float w) const;
    void set(const char* name, const std::array<float, 16>& columnMajor) const;

private:
    GLint location(const char* name) const { return glGetUniformLocation(m_program.id(), name); }

    GlProgramObject m_program;
};

} // namespace vantix::host::detail
