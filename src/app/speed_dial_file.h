#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "app/field_splitter.h"
#include "platform/text/file_replacement.h"

namespace orvane {

inline constexpr std::size_t kSpeedDialRows = 8;
// Ends each field of the file; the numbers of the speed-dial list are kept in the same form.
inline constexpr char kSpeedDialFieldSeparator = '|';

// One row of the speed-dial memory, as typed.
struct SpeedDialRow {
  std::string name;
  std::string number;
  bool operator==(const SpeedDialRow&) const = default;
};

using SpeedDialRows = std::array<SpeedDialRow, kSpeedDialRows>;

struct SpeedDialMemory {
  SpeedDialRows internalRows;
  SpeedDialRows externalRows;
  bool operator==(const SpeedDialMemory&) const = default;
};

// The rows of the file's text. An empty text has empty rows; otherwise a field that is not in the
// text reads kPipeEnd.
SpeedDialMemory ParseSpeedDialFile(std::string_view text);

// Whether the rows are those of a block without a single field.
bool IsEmptyBlock(const SpeedDialRows& rows);

// The text of the speed-dial file: each field ends with "|", and "¿" parts the two blocks. A "|" or
// "¿" inside a field is written as it is and shifts the fields of the next reading.
std::string SpeedDialFileText(const SpeedDialMemory& memory);

// What the user's speed-dial file holds; empty rows when there is none. `userPath` as
// HostEnvironment has it. Throws PlatformError when the file is there but cannot be read.
SpeedDialMemory ReadSpeedDialFile(const std::string& userPath);

// The new content of the user's speed-dial file, to be committed. Throws PlatformError.
std::unique_ptr<FileReplacement> ReplaceSpeedDialFile(const std::string& userPath,
                                                      const SpeedDialMemory& memory);

// The first character of a text that the file's code page does not have; empty when it has all.
std::string UnstorableCharacter(std::string_view text);

}  // namespace orvane
