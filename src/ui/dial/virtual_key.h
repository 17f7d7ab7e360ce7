#pragma once

class QKeyEvent;

namespace orvane {

inline constexpr int kNoVirtualKey = 0;

// The virtual key code of a key event, as far as the dial window's keys are concerned;
// kNoVirtualKey for any other key and for keys held together with Ctrl, Alt or the system key.
int VirtualKeyOf(const QKeyEvent& event);

}  // namespace orvane
