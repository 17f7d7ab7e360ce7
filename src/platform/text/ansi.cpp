#include "platform/text/ansi.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace orvane {
namespace {

// Windows-1252 differs from Latin-1 in this one block.
constexpr unsigned char kBlockFirst = 0x80;
constexpr unsigned char kBlockLast = 0x9F;
constexpr std::array<char32_t, 32> kBlock = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

struct Decoded {
  char32_t character = 0;
  std::size_t length = 0;  // 0: the first byte does not begin valid UTF-8
};

std::size_t SequenceLength(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead <= 0xDF) return 2;
  if (lead >= 0xE0 && lead <= 0xEF) return 3;
  if (lead >= 0xF0 && lead <= 0xF4) return 4;
  return 0;
}

Decoded DecodeFirst(std::string_view text) {
  const auto lead = static_cast<unsigned char>(text.front());
  const std::size_t length = SequenceLength(lead);
  if (length == 1) return {lead, 1};
  if (length == 0 || text.size() < length) return {};
  auto character = static_cast<char32_t>(lead & (0xFFU >> (length + 1)));
  for (std::size_t i = 1; i < length; ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    if ((byte & 0xC0U) != 0x80U) return {};
    character = (character << 6U) | (byte & 0x3FU);
  }
  const bool overlong = (length == 3 && character < 0x800) || (length == 4 && character < 0x10000);
  const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
  if (overlong || surrogate || character > 0x10FFFF) return {};
  return {character, length};
}

char AnsiOf(char32_t character) {
  const bool inBlock = character >= kBlockFirst && character <= kBlockLast;
  if (character <= 0xFF && !inBlock) return static_cast<char>(character);
  for (std::size_t i = 0; i < kBlock.size(); ++i) {
    if (kBlock[i] == character) return static_cast<char>(kBlockFirst + i);
  }
  return '?';
}

void AppendUtf8(std::string& out, char32_t character) {
  if (character < 0x80) {
    out += static_cast<char>(character);
    return;
  }
  if (character < 0x800) {
    out += static_cast<char>(0xC0U | (character >> 6U));
  } else {
    out += static_cast<char>(0xE0U | (character >> 12U));
    out += static_cast<char>(0x80U | ((character >> 6U) & 0x3FU));
  }
  out += static_cast<char>(0x80U | (character & 0x3FU));
}

}  // namespace

std::string EncodeAnsi(std::string_view utf8) {
  std::string ansi;
  ansi.reserve(utf8.size());
  while (!utf8.empty()) {
    const Decoded first = DecodeFirst(utf8);
    ansi += first.length == 0 ? '?' : AnsiOf(first.character);
    utf8.remove_prefix(first.length == 0 ? 1 : first.length);
  }
  return ansi;
}

std::string DecodeAnsi(std::string_view ansi) {
  std::string utf8;
  utf8.reserve(ansi.size());
  for (const char c : ansi) {
    const auto byte = static_cast<unsigned char>(c);
    const bool inBlock = byte >= kBlockFirst && byte <= kBlockLast;
    AppendUtf8(utf8, inBlock ? kBlock[byte - kBlockFirst] : byte);
  }
  return utf8;
}

}  // namespace orvane
