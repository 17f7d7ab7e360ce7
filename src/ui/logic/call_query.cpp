#include "ui/logic/call_query.h"

#include <array>

namespace orvane {
namespace {

constexpr int kPeriodToday = 6;
constexpr int kPeriodYesterday = 7;
constexpr int kPeriodThisWeek = 8;
constexpr int kPeriodLastWeek = 9;

// No call has this value of `Ext`: a filter that lets nothing through still is a query.
constexpr const char* kNone = "Ext=9";

std::string TopPart(int period) {
  // The first period is all that the journal keeps.
  static constexpr std::array<const char*, 6> kParts = {"",        " TOP 300", " TOP 100",
                                                        " TOP 50", " TOP 20",  " TOP 10"};
  const auto index = static_cast<std::size_t>(period);
  return index < kParts.size() ? kParts[index] : "";
}

std::string DayIs(const char* comparison, int day) {
  return std::string("FIX(CDBL(Zeit))") + comparison + std::to_string(day);
}

std::string DateCondition(int period, const CallDays& days) {
  switch (period) {
    case kPeriodToday:
      return DayIs("=", days.today);
    case kPeriodYesterday:
      return DayIs("=", days.today - 1);
    case kPeriodThisWeek:
      return DayIs(">=", days.monday);
    case kPeriodLastWeek:
      return DayIs(">", days.monday - 8) + " AND " + DayIs("<", days.monday);
    default:
      return {};
  }
}

// Narrows the condition to one of two kinds, or to none; both together need no condition.
void Narrow(std::string& condition, bool first, const char* isFirst, bool second,
            const char* isSecond) {
  if (first && second) return;
  if (!condition.empty()) condition += " AND ";
  condition += first ? isFirst : second ? isSecond : kNone;
}

}  // namespace

std::string CallQuery(const CallFilter& filter, const CallDays& days) {
  std::string condition = DateCondition(filter.period, days);
  Narrow(condition, filter.internal, "Ext=0", filter.external, "Ext=-1");
  Narrow(condition, filter.withNumber, "NOT Nr IS NULL", filter.withoutNumber, "Nr IS NULL");
  return "SELECT DISTINCT" + TopPart(filter.period) + " Zeit,Ext,Nr,Firma,Ort,Person FROM " +
         (filter.tab == CallTab::kIncoming ? "i" : "o") +
         (condition.empty() ? condition : " WHERE " + condition);
}

}  // namespace orvane
