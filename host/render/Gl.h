// The OpenGL core profile the renderer uses, declared from the system's headers; the functions come from
// the GL library directly (libOpenGL exports the whole core profile), so no loader is needed.
#pragma once

#ifndef GL_GLEXT_PROTOTYPES
#define GL_GLEXT_PROTOTYPES 1
#endif
#include <GL/glcorearb.h>
