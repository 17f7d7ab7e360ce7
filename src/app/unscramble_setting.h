#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace orvane {

// The parameters that the host always scrambles with.
inline constexpr std::string_view kScrambleKey = "Talmix-Nordel";
inline constexpr int kScrambleRounds = 3;

// Turns a value that the host scrambled back into plain UTF-8 text. Text that does not have the
// scrambled form (digits missing, checksum wrong) comes back unchanged, because hosts also store
// plain markers. The algorithm is described in docs/host-settings.md.
std::string UnscrambleSetting(std::string_view text, std::string_view key, int rounds);

// The byte that the plain byte at `position` (from 0) is combined with.
std::uint8_t ScrambleKeyByte(std::string_view key, int rounds, std::size_t position);

// The checksum of the plain Windows-1252 bytes.
std::uint16_t ScrambleChecksum(std::string_view ansi);

}  // namespace orvane
