#pragma once

namespace feedloom {

// Turns off OpenGL for this process's X11 windows when the system has no graphics device. OpenGL
// would be emulated in software there; without it the browser engine paints by itself, starts
// sooner and takes less memory. QT_XCB_GL_INTEGRATION overrides this when the user has set it. Call
// this before the application object is created.
void DisableSoftwareOpenGl();

}  // namespace feedloom
