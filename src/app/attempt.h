#pragma once

#include <exception>
#include <optional>

#include "app/error_report.h"

namespace orvane {

// Runs one step of a procedure that goes on with its next step when one fails; what went wrong, if
// anything did.
template <typename Step>
std::optional<ErrorState> Attempt(const Step& step) {
  try {
    step();
    return std::nullopt;
  } catch (const std::exception& error) {
    return ErrorStateOf(error);
  }
}

}  // namespace orvane
