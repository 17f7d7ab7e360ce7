#pragma once

#include <string>
#include <vector>

#include "journal/journal_entry.h"
#include "platform/clock.h"
#include "ui/logic/call_days.h"

namespace orvane {

// Where a call stands in the call history; the group of the lowest priority comes first.
struct CallGroup {
  std::string caption;
  int priority = 0;

  bool operator==(const CallGroup&) const = default;
};

// The group of a day. A day of the week groups stands there also when it is in another month than
// today, so the month groups begin where three weeks back end.
CallGroup CallGroupOf(int day, const CallDays& days, const LocaleFormat& locale);

struct GroupedCalls {
  CallGroup group;
  // The newest first.
  std::vector<JournalCall> calls;
};

// The calls in their groups, by priority. Calls without a time are the oldest.
std::vector<GroupedCalls> GroupCalls(std::vector<JournalCall> calls, const CallDays& days,
                                     const LocaleFormat& locale);

}  // namespace orvane
