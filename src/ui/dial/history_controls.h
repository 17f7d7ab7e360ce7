#pragma once

#include "ui/dial/dial_controls.h"

namespace orvane {

// The line between the dial pad and the call history, in device-independent pixels.
inline constexpr int kHistoryEdge = 1;

// Creates the controls of the call history in a hidden panel inside the information panel.
QFrame* BuildHistory(DialControls& controls);

}  // namespace orvane
