#pragma once

namespace orvane {

// Whether the desktop blends windows: only then can a window have translucent pixels. False without
// an X display.
bool DesktopComposes();

}  // namespace orvane
