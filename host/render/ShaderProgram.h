// A linked vertex and fragment shader pair with its uniforms looked up by name.
#pragma once

#include "render/GlObjects.h"

#include <array>
#include <optional>
#include <string>

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

// A shader program built the first time a picture needs it. A linked program keeps its compiled form in
// the GL library (a megabyte or two each), and most pictures need only some of the programs there are.
class ProgramOnDemand
{
public:
    ProgramOnDemand(const char* name, std::string vertexSource, std::string fragmentSource)
        : m_name(name), m_vertexSource(std::move(vertexSource)), m_fragmentSource(std::move(fragmentSource))
    {
    }

    // Builds the program the first time; throws as ShaderProgram does.
    const ShaderProgram& get();

private:
    const char* m_name;
    std::string m_vertexSource;
    std::string m_fragmentSource;
    std::optional<ShaderProgram> m_program;
};

} // namespace vantix::host::detail
