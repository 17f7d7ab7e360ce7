#include "platform/text/text_tools.h"

#include <algorithm>
#include <utility>

namespace orvane {
namespace {

char Lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace

std::string_view Trimmed(std::string_view text, std::string_view blanks) {
  const auto first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::string Trim(std::string_view text) {
  return std::string(Trimmed(text, " "));
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

std::size_t CountCharacters(std::string_view text) {
  return static_cast<std::size_t>(std::ranges::count_if(text, BeginsCharacter));
}

std::string FirstCharacters(std::string_view text, std::size_t count) {
  std::size_t end = 0;
  std::size_t taken = 0;
  while (end < text.size()) {
    // A stray byte at the front stands for itself.
    if ((end == 0 || BeginsCharacter(text[end])) && ++taken > count) break;
    ++end;
  }
  return std::string(text.substr(0, end));
}

std::string LowerAscii(std::string_view text) {
  std::string lower(text);
  std::ranges::transform(lower, lower.begin(), Lower);
  return lower;
}

std::string UpperAscii(std::string_view text) {
  std::string upper(text);
  for (char& c : upper) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return upper;
}

bool EqualsIgnoringCase(std::string_view a, std::string_view b) {
  return std::ranges::equal(a, b, {}, Lower, Lower);
}

std::string LowerLatin(std::string_view text) {
  // The letters beyond Latin-1, upper and lower case.
  static constexpr std::pair<std::string_view, std::string_view> kBeyond[] = {
      {"Š", "š"}, {"Œ", "œ"}, {"Ž", "ž"}, {"Ÿ", "ÿ"}};
  std::string lower = LowerAscii(text);
  for (std::size_t i = 0; i + 1 < lower.size(); ++i) {
    const auto second = static_cast<unsigned char>(lower[i + 1]);
    // U+00C0 to U+00DE are 0xC3 0x80 to 0xC3 0x9E in UTF-8; 0x97 is the multiplication sign.
    if (lower[i] == '\xC3' && second >= 0x80 && second <= 0x9E && second != 0x97) {
      lower[i + 1] = static_cast<char>(second + 0x20);
      continue;
    }
    for (const auto& [from, to] : kBeyond) {
      if (lower.compare(i, from.size(), from) == 0) lower.replace(i, from.size(), to);
    }
  }
  return lower;
}

}  // namespace orvane
