#include "platform/support/error_text.h"

#include <array>
#include <cstdio>

namespace orvane {

std::string HexText(std::int32_t number) {
  std::array<char, 16> text{};
  std::snprintf(text.data(), text.size(), "0x%X", static_cast<unsigned>(number));
  return text.data();
}

std::string ErrorText(std::int32_t number) {
  const std::string text = "Fehler " + std::to_string(number);
  return number < 0 ? text + " (" + HexText(number) + ")" : text;
}

}  // namespace orvane
