#include "platform/text/text_tools.h"

namespace orvane {

std::string Trim(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

std::vector<std::string> Split(std::string_view text, char separator) {
  std::vector<std::string> parts;
  std::size_t start = 0;
  while (true) {
    const auto end = text.find(separator, start);
    parts.emplace_back(text.substr(start, end - start));
    if (end == std::string_view::npos) return parts;
    start = end + 1;
  }
}

std::string ReplaceAll(std::string_view text, std::string_view from, std::string_view to) {
  std::string result;
  std::size_t start = 0;
  while (true) {
    const auto found = text.find(from, start);
    result += text.substr(start, found - start);
    if (found == std::string_view::npos) return result;
    result += to;
    start = found + from.size();
  }
}

std::string FirstCharacters(std::string_view text, std::size_t count) {
  std::size_t end = 0;
  std::size_t taken = 0;
  while (end < text.size()) {
    const bool startsCharacter = (static_cast<unsigned char>(text[end]) & 0xC0U) != 0x80U;
    if (startsCharacter && ++taken > count) break;
    ++end;
  }
  return std::string(text.substr(0, end));
}

}  // namespace orvane
