#pragma once

#include <string>
#include <string_view>

namespace orvane {

// UTF-8 to Windows-1252. A character that the code page does not have becomes "?"; so does each
// byte that is not part of valid UTF-8.
std::string EncodeAnsi(std::string_view utf8);

// Windows-1252 to UTF-8. The five bytes without a character (0x81, 0x8D, 0x8F, 0x90, 0x9D) become
// the control characters of the same number, as the system does it, so that every byte survives
// decoding and encoding.
std::string DecodeAnsi(std::string_view ansi);

}  // namespace orvane
