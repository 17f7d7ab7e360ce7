#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

#include "platform/prompts.h"

namespace orvane {

// The error that a procedure was ended by. `line` is 0 where no line is known.
struct ErrorState {
  std::int32_t number = 0;
  std::string description;
  int line = 0;
};

// Number and description of a caught exception; a PlatformError brings its own, other exceptions
// count as error 5 (invalid procedure call).
ErrorState ErrorStateOf(const std::exception& error);

// A run-time error by number, with the German description the run-time library gives it.
inline constexpr std::int32_t kErrorOverflow = 6;
inline constexpr std::int32_t kErrorTypeMismatch = 13;

// Explains an error to the user in the message control, with a technical line for support.
// `nativeNumber` is the database's own number, looked at for grid procedures only.
void ShowError(Prompts& prompts, const ErrorState& error, std::string_view procedure,
               std::int32_t nativeNumber = 0);

// Line breaks to "<br>", and the characters that markup gives a meaning to escaped.
std::string MessageMarkup(std::string_view text);

}  // namespace orvane
