#pragma once

#include <chrono>
#include <cstdint>

namespace orvane {

// A date-time as number counts days from here, the time of day as fraction.
inline constexpr std::chrono::sys_days kDayZero{std::chrono::year(1899) / std::chrono::December /
                                                30};

inline constexpr std::int64_t kSecondsPerDay = 86400;

}  // namespace orvane
