// SPDX-License-Identifier: GPL-3.0-or-later
#include "GlSwitch.h"

#include <dlfcn.h>

// The program's own definitions come before those of the system's library.
#define DUO_GL_CALL(name, declared, given)                                                                             \
    extern "C" __attribute__ ((visibility ("default"))) void name declared                                             \
    {                                                                                                                  \
        static const auto next = reinterpret_cast<void (*) declared> (dlsym (RTLD_NEXT, #name));                       \
        if (GlSwitch::passesOn)                                                                                        \
            next given;                                                                                                \
    }

DUO_GL_CALL (glBegin, (unsigned mode), (mode))
DUO_GL_CALL (glEnd, (), ())
DUO_GL_CALL (glVertex2i, (int x, int y), (x, y))
DUO_GL_CALL (glVertex2f, (float x, float y), (x, y))
DUO_GL_CALL (glTexCoord2f, (float u, float v), (u, v))
DUO_GL_CALL (glColor4f, (float r, float g, float b, float a), (r, g, b, a))
DUO_GL_CALL (glRecti, (int x1, int y1, int x2, int y2), (x1, y1, x2, y2))
DUO_GL_CALL (glEnable, (unsigned capability), (capability))
DUO_GL_CALL (glDisable, (unsigned capability), (capability))
DUO_GL_CALL (glBlendFunc, (unsigned source, unsigned destination), (source, destination))
DUO_GL_CALL (glLineWidth, (float width), (width))
DUO_GL_CALL (glPointSize, (float size), (size))
DUO_GL_CALL (glBindTexture, (unsigned target, unsigned texture), (target, texture))
DUO_GL_CALL (glPushMatrix, (), ())
DUO_GL_CALL (glPopMatrix, (), ())
DUO_GL_CALL (glTranslatef, (float x, float y, float z), (x, y, z))
DUO_GL_CALL (glLoadIdentity, (), ())
