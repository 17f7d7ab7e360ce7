#include "ui/logic/call_groups.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace orvane {
namespace {

int DayOf(const JournalCall& call) {
  return call.time ? static_cast<int>(std::floor(*call.time)) : std::numeric_limits<int>::min();
}

}  // namespace

CallGroup CallGroupOf(int day, const CallDays& days, const LocaleFormat& locale) {
  if (day < days.previousMonth) return {"Älter", 15};
  if (day > days.today) return {"Unkategorisiert", 0};
  if (day == days.today) return {"Heute", 1};
  if (day == days.today - 1) return {"Gestern", 2};
  if (day > days.monday - 1) return {locale.WeekdayName(IsoWeekday(day)), days.today - day + 1};
  if (day > days.monday - 8) return {"Letzte Woche", 10};
  if (day > days.monday - 15) return {"Vor zwei Wochen", 11};
  if (day > days.monday - 22) return {"Vor drei Wochen", 12};
  if (day > days.month - 1) return {"Diesen Monat", 13};
  return {"Letzten Monat", 14};
}

std::vector<GroupedCalls> GroupCalls(std::vector<JournalCall> calls, const CallDays& days,
                                     const LocaleFormat& locale) {
  // No time is less than any time.
  std::stable_sort(calls.begin(), calls.end(),
                   [](const JournalCall& a, const JournalCall& b) { return a.time > b.time; });
  // From the newest to the oldest the priority only rises, so each group is one run of calls.
  std::vector<GroupedCalls> groups;
  for (JournalCall& call : calls) {
    CallGroup group = CallGroupOf(DayOf(call), days, locale);
    if (groups.empty() || groups.back().group != group) groups.push_back({std::move(group), {}});
    groups.back().calls.push_back(std::move(call));
  }
  return groups;
}

}  // namespace orvane
