#pragma once

#include <exception>

namespace orvane {

// Runs one step of a procedure that goes on with its next step when one fails.
template <typename Step>
void Attempt(const Step& step) {
  try {
    step();
  } catch (const std::exception&) {
    // Loading and closing the window must get through whatever is missing.
  }
}

}  // namespace orvane
