#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orvane {

// Without leading and trailing blanks.
std::string Trim(std::string_view text);

// The parts between separators, empty ones kept; an empty text has one empty part.
std::vector<std::string> Split(std::string_view text, char separator);

// Every occurrence of `from` (not empty) replaced by `to`.
std::string ReplaceAll(std::string_view text, std::string_view from, std::string_view to);

// The first `count` characters (code points) of a UTF-8 text.
std::string FirstCharacters(std::string_view text, std::size_t count);

}  // namespace orvane
