#pragma once

#include <cstdint>
#include <string>

namespace orvane {

// A number as manuals of lines and databases print it: "0x80000018".
std::string HexText(std::int32_t number);

// "Fehler 8002"; a number that is negative as it stands, also in hexadecimal digits.
std::string ErrorText(std::int32_t number);

}  // namespace orvane
