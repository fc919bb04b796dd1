#pragma once

// The types that the headers of AppKit name. Nothing here draws with OpenGL.
typedef unsigned int GLenum;
typedef int GLint;
typedef int GLsizei;
typedef unsigned int GLuint;
