#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace orvane {

inline constexpr std::size_t kSpeedDialRows = 8;

// One row of the speed-dial memory, as typed.
struct SpeedDialRow {
  std::string name;
  std::string number;
  bool operator==(const SpeedDialRow&) const = default;
};

struct SpeedDialMemory {
  std::array<SpeedDialRow, kSpeedDialRows> internalRows;
  std::array<SpeedDialRow, kSpeedDialRows> externalRows;
  bool operator==(const SpeedDialMemory&) const = default;
};

// The rows of the speed-dial file's text. An empty text has empty rows; otherwise a field that is
// not in the text reads "<PipeEnd>".
SpeedDialMemory ParseSpeedDialFile(std::string_view text);

// The text of the speed-dial file: each field ends with "|", and "¿" parts the two blocks. A "|" or
// "¿" inside a field is written as it is and shifts the fields of the next reading.
std::string SpeedDialFileText(const SpeedDialMemory& memory);

// The first character of a text that the file's code page does not have; empty when it has all.
std::string UnstorableCharacter(std::string_view text);

}  // namespace orvane
