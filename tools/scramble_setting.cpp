#include "scramble_setting.h"

#include "app/unscramble_setting.h"
#include "platform/text/ansi.h"

namespace orvane {
namespace {

void AppendHex(std::string& text, unsigned byte) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  text += kDigits[byte / 16 % 16];
  text += kDigits[byte % 16];
}

}  // namespace

std::string ScrambleSetting(std::string_view text, std::string_view key, int rounds) {
  if (text.empty()) return {};
  const std::string plain = EncodeAnsi(text);
  std::string scrambled;
  for (std::size_t i = 0; i < plain.size(); ++i) {
    AppendHex(scrambled, static_cast<unsigned char>(plain[i]) ^ ScrambleKeyByte(key, rounds, i));
  }
  const unsigned checksum = ScrambleChecksum(plain);
  AppendHex(scrambled, checksum / 256);
  AppendHex(scrambled, checksum % 256);
  return scrambled;
}

}  // namespace orvane
