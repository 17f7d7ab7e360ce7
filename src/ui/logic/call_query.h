#pragma once

#include <string>

#include "ui/logic/call_days.h"

namespace orvane {

inline constexpr int kCallPeriods = 10;
inline constexpr int kCallKinds = 4;

// The tabs of the call history, by their position.
enum class CallTab : int { kIncoming = 0, kOutgoing = 1 };

// What the call history shows.
struct CallFilter {
  CallTab tab = CallTab::kOutgoing;
  // Position in the list of periods: the newest 600, 300, 100, 50, 20 or 10 calls, those of today,
  // of yesterday, of this week or of the last one.
  int period = 0;
  bool internal = true;
  bool external = true;
  bool withNumber = true;
  bool withoutNumber = true;
};

// The journal query for a filter. It has no order of its own; the journal hands out the newest
// calls first.
std::string CallQuery(const CallFilter& filter, const CallDays& days);

}  // namespace orvane
