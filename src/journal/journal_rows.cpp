#include "journal/journal_rows.h"

#include <cmath>

#include "app/date_time.h"
#include "journal/duration_text.h"
#include "journal/field_access.h"
#include "platform/errors.h"

namespace orvane {
namespace {

// The days that a date-time can hold: the years 100 to 9999.
constexpr double kFirstDay = -657434;
constexpr double kEndDay = 2958466;

std::optional<double> TimeOf(const DbValue& value) {
  double time = 0;
  if (const auto* real = std::get_if<double>(&value)) {
    time = *real;
  } else if (const auto* whole = std::get_if<std::int64_t>(&value)) {
    time = static_cast<double>(*whole);
  } else {
    return std::nullopt;
  }
  constexpr double kSeconds{kSecondsPerDay};
  if (!(time >= kFirstDay && time < kEndDay)) return std::nullopt;
  return std::round(time * kSeconds) / kSeconds;
}

template <typename Entry, typename Read>
std::vector<Entry> Collected(Recordset& rows, const Read& read) {
  std::vector<Entry> entries;
  try {
    for (; !rows.AtEnd(); rows.MoveNext()) entries.push_back(read());
  } catch (const PlatformError&) {
    // What was read so far is shown.
  }
  return entries;
}

}  // namespace

std::vector<JournalCall> JournalCallsOf(Recordset& rows) {
  return Collected<JournalCall>(rows, [&rows] {
    return JournalCall{TimeOf(rows.Field("Zeit")), IntegerOf(rows.Field("Ext")) != 0,
                       TextField(rows, "Nr"),      TextField(rows, "Firma"),
                       TextField(rows, "Ort"),     TextField(rows, "Person")};
  });
}

std::vector<JournalDuration> JournalDurationsOf(Recordset& rows) {
  return Collected<JournalDuration>(rows, [&rows] {
    return JournalDuration{TimeOf(rows.Field("Zeit")), TextField(rows, "Nr"),
                           ParseDuration(TextField(rows, "Dauer"))};
  });
}

}  // namespace orvane
