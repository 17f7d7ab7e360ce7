#include "platform/text/stopwatch.h"

namespace orvane {

std::string Stopwatch::Text() const {
  const auto tenths = std::chrono::duration_cast<std::chrono::duration<long long, std::deci>>(
                          (std::chrono::steady_clock::now() - begin_) * 1000)
                          .count();
  return std::to_string(tenths / 10) + "," + std::to_string(tenths % 10) + " ms";
}

}  // namespace orvane
