#pragma once

#include <cstdint>
#include <string>

namespace orvane {

// What a line tells by its control's event of that name.
struct LineMessage {
  std::string result;
  std::string function;
  std::int32_t code = 0;
  // Whether it answers a request of the program.
  bool asked = false;
};

// In German, with the event's own words behind it.
std::string LineMessageText(const LineMessage& message);

// In German, with its number.
std::string CallStateText(std::int32_t state);

}  // namespace orvane
