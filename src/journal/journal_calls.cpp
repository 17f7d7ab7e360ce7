#include "journal/journal_calls.h"

#include <cmath>

#include "app/date_time.h"
#include "journal/field_access.h"
#include "journal/tel_list.h"
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

void AppendCalls(Recordset& rows, std::vector<JournalCall>& calls) {
  for (; !rows.AtEnd(); rows.MoveNext()) {
    calls.push_back({TimeOf(rows.Field("Zeit")), IntegerOf(rows.Field("Ext")) != 0,
                     TextField(rows, "Nr"), TextField(rows, "Firma"), TextField(rows, "Ort"),
                     TextField(rows, "Person")});
  }
}

}  // namespace

std::vector<JournalCall> ReadJournalCalls(Prompts& prompts, ProgramState& state,
                                          const std::string& query) {
  std::vector<JournalCall> calls;
  if (!ReopenTelDB(prompts, state, JournalUse::kRead)) return calls;
  DatabaseConnection& journal = *state.databases.journal;
  try {
    AppendCalls(*journal.Execute(query), calls);
  } catch (const PlatformError&) {
    // What was read so far is shown.
  }
  journal.Close();
  return calls;
}

}  // namespace orvane
