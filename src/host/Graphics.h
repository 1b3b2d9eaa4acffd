#pragma once

namespace feedloom {

// Where the system has no graphics device, OpenGL is a program that computes each picture: then the
// X11 windows of this process go without it, and the browser engine paints by itself. That starts
// sooner and takes less memory. A choice that the user has made in the environment stays. To be
// called before the application object is made.
void LeaveOutSlowGraphics();

}  // namespace feedloom
