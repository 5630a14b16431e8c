#pragma once

// The shell draws with X11 window hints and shapes, so it runs on Qt's xcb platform: an X11 session,
// or XWayland in a Wayland one. The offscreen platform is accepted for headless runs.
namespace vantrelle::DisplayPlatform {

// Before the application object exists: where the user named no platform, X11 is tried first, so a
// Wayland session with XWayland just works.
void preferX11();
// After it exists: false, with a message on stderr saying what to do, on any other platform.
[[nodiscard]] bool check();

}  // namespace vantrelle::DisplayPlatform
