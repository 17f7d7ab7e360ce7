#pragma once

#include <array>
#include <cstddef>

#include "ui/dial/dial_controls.h"

namespace orvane {

// The keys in reading order, by their index in cmdNr.
inline constexpr std::array<std::size_t, 12> kKeyOrder = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 0, 11};

// Lays the pad out with everything on it, the keys three in a row. What the view shows of the
// commands is the caller's.
void ArrangeFullView(DialControls& c);

// Lays out what the compact view leaves: the title strip, the number field with the dial button
// beside it, and the keys in one row. Gives the information panel its height there.
void ArrangeCompactView(DialControls& c);

}  // namespace orvane
