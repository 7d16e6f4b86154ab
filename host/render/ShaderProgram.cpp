#include "render/ShaderProgram.h"

#include <stdexcept>
#include <string>
#include <vector>

namespace vantix::host::detail
{

namespace
{

// A compiled shader, deleted once the program is linked (the program keeps what it needs).
class CompiledShader
{
public:
    CompiledShader(const char* programName, GLenum kind, const char* source) : m_id(glCreateShader(kind))
    {
        glShaderSource(m_id, 1, &source, nullptr);
        glCompileShader(m_id);
        GLint ok = GL_FALSE;
        glGetShaderiv(m_id, GL_COMPILE_STATUS, &ok);
        if (ok != GL_TRUE)
        {
            GLint length = 0;
            glGetShaderiv(m_id, GL_INFO_LOG_LENGTH, &length);
            std::vector<char> log(static_cast<std::size_t>(length > 0 ? length : 1), '\0');
            glGetShaderInfoLog(m_id, static_cast<GLsizei>(log.size()), nullptr, log.data());
            glDeleteShader(m_id);
            throw std::runtime_error(std::string("the ") + programName +
                                     " shader does not compile: " + log.data());
        }
    }
    ~CompiledShader() { glDeleteShader(m_id); }
    CompiledShader(const CompiledShader&) = delete;
    CompiledShader& operator=(const CompiledShader&) = delete;

    GLuint id() const { return m_id; }

private:
    GLuint m_id;
};

} // namespace

ShaderProgram::ShaderProgram(const char* name, const char* vertexSource, const char* fragmentSource)
{
    const CompiledShader vertex(name, GL_VERTEX_SHADER, vertexSource);
    const CompiledShader fragment(name, GL_FRAGMENT_SHADER, fragmentSource);
    glAttachShader(m_program.id(), vertex.id());
    glAttachShader(m_program.id(), fragment.id());
    glLinkProgram(m_program.id());
    glDetachShader(m_program.id(), vertex.id());
    glDetachShader(m_program.id(), fragment.id());
    GLint ok = GL_FALSE;
    glGetProgramiv(m_program.id(), GL_LINK_STATUS, &ok);
    if (ok != GL_TRUE)
    {
        GLint length = 0;
        glGetProgramiv(m_program.id(), GL_INFO_LOG_LENGTH, &length);
        std::vector<char> log(static_cast<std::size_t>(length > 0 ? length : 1), '\0');
        glGetProgramInfoLog(m_program.id(), static_cast<GLsizei>(log.size()), nullptr, log.data());
        throw std::runtime_error(std::string("the ") + name + " shaders do not link: " + log.data());
    }
}

void ShaderProgram::set(const char* name, float value) const
{
    glUniform1f(location(name), value);
}

void ShaderProgram::set(const char* name, int value) const
{
    glUniform1i(location(name), value);
}

void ShaderProgram::set(const char* name, float x, float y) const
{
    glUniform2f(location(name), x, y);
}

void ShaderProgram::set(const char* name, float x, float y, float z) const
{
    glUniform3f(location(name), x, y, z);
}

void ShaderProgram::set(const char* name, float x, float y, float z, float w) const
{
    glUniform4f(location(name), x, y, z, w);
}

void ShaderProgram::set(const char* name, const std::array<float, 16>& columnMajor) const
{
    glUniformMatrix4fv(location(name), 1, GL_FALSE, columnMajor.data());
}

const ShaderProgram& ProgramOnDemand::get()
{
    if (!m_program)
        m_program.emplace(m_name, m_vertexSource.c_str(), m_fragmentSource.c_str());
    return *m_program;
}

} // namespace vantix::host::detail
