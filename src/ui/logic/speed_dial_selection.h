#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "app/speed_dial_markup.h"

namespace orvane {

// The number of the speed-dial entry at `listIndex` (from 0). `numbers` holds one number for each
// entry, each followed by "|". Empty for an index without an entry; there are at most 255.
std::string SpeedDialNumber(std::string_view numbers, int listIndex);

// Whether a speed-dial number is marked as external: it ends in "ext.)".
bool MarkedExternal(std::string_view number);

// One entry of the speed-dial list as the list shows it.
struct SpeedDialEntry {
  std::string name;
  // Empty for plain text, such as the note that nothing is stored.
  std::optional<SpeedDialKind> kind;

  bool operator==(const SpeedDialEntry&) const = default;
};

// Takes the text of SpeedDialItemMarkup apart again. The name is the user's own text and stands in
// the markup unescaped, so it is found by what surrounds it and not by parsing.
SpeedDialEntry ParseSpeedDialEntry(std::string_view text);

}  // namespace orvane
