#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orvane {

// Without those of the characters in `blanks` that lead or trail.
std::string_view Trimmed(std::string_view text, std::string_view blanks);
// Without leading and trailing blanks.
std::string Trim(std::string_view text);

// The parts between separators, empty ones kept; an empty text has one empty part.
std::vector<std::string> Split(std::string_view text, char separator);

// Every occurrence of `from` (not empty) replaced by `to`.
std::string ReplaceAll(std::string_view text, std::string_view from, std::string_view to);

// Whether a byte of UTF-8 text begins a character.
constexpr bool BeginsCharacter(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
}
// How many characters (code points) a UTF-8 text has.
std::size_t CountCharacters(std::string_view text);
// The first `count` characters (code points) of a UTF-8 text.
std::string FirstCharacters(std::string_view text, std::size_t count);

// Letter case of the letters A to Z; all others stay.
std::string LowerAscii(std::string_view text);
std::string UpperAscii(std::string_view text);
bool EqualsIgnoringCase(std::string_view a, std::string_view b);
// Lower case of A to Z and of the letters with marks that Windows-1252 has, in UTF-8.
std::string LowerLatin(std::string_view text);

}  // namespace orvane
