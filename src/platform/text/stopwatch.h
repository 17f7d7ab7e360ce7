#pragma once

#include <chrono>
#include <string>

namespace orvane {

// Measures how long a step takes.
class Stopwatch {
 public:
  // Milliseconds since it was made, as German text with its unit: "3,1 ms".
  std::string Text() const;

 private:
  std::chrono::steady_clock::time_point begin_ = std::chrono::steady_clock::now();
};

}  // namespace orvane
