#include "app/unscramble_setting.h"

#include <optional>

#include "platform/text/ansi.h"

namespace orvane {
namespace {

constexpr std::size_t kChecksumBytes = 2;

// Upper-case digits only: the host writes no others.
std::optional<unsigned> HexDigit(char c) {
  if (c >= '0' && c <= '9') return static_cast<unsigned>(c - '0');
  if (c >= 'A' && c <= 'F') return static_cast<unsigned>(c - 'A' + 10);
  return std::nullopt;
}

std::optional<std::string> BytesOfHex(std::string_view text) {
  if (text.size() % 2 != 0) return std::nullopt;
  std::string bytes;
  for (std::size_t i = 0; i < text.size(); i += 2) {
    const auto high = HexDigit(text[i]);
    const auto low = HexDigit(text[i + 1]);
    if (!high || !low) return std::nullopt;
    bytes += static_cast<char>(*high * 16 + *low);
  }
  return bytes;
}

unsigned ByteAt(std::string_view bytes, std::size_t index) {
  return static_cast<unsigned char>(bytes[index]);
}

}  // namespace

std::uint8_t ScrambleKeyByte(std::string_view key, int rounds, std::size_t position) {
  auto state = static_cast<std::uint32_t>(position + 1) * 40503U;
  for (int round = 0; round < rounds && !key.empty(); ++round) {
    const auto index = (position + static_cast<std::size_t>(round)) % key.size();
    state = (state ^ ByteAt(key, index)) * 16777619U;
  }
  return static_cast<std::uint8_t>(state >> 16U);
}

std::uint16_t ScrambleChecksum(std::string_view ansi) {
  std::uint32_t sum = 1;
  for (std::size_t i = 0; i < ansi.size(); ++i) sum = (sum * 31U + ByteAt(ansi, i)) % 65521U;
  return static_cast<std::uint16_t>(sum);
}

std::string UnscrambleSetting(std::string_view text, std::string_view key, int rounds) {
  std::string unchanged(text);
  const auto bytes = BytesOfHex(text);
  if (!bytes || bytes->size() <= kChecksumBytes) return unchanged;

  const auto length = bytes->size() - kChecksumBytes;
  std::string plain = bytes->substr(0, length);
  for (std::size_t i = 0; i < length; ++i) {
    plain[i] = static_cast<char>(ByteAt(plain, i) ^ ScrambleKeyByte(key, rounds, i));
  }
  const auto stored = ByteAt(*bytes, length) * 256U + ByteAt(*bytes, length + 1);
  return stored == ScrambleChecksum(plain) ? DecodeAnsi(plain) : unchanged;
}

}  // namespace orvane
