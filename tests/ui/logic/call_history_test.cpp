// What the call history asks the journal for, and how it groups what it gets.

#include <gtest/gtest.h>

#include "app/date_time.h"
#include "fakes/fixed_clock.h"
#include "ui/logic/call_columns.h"
#include "ui/logic/call_groups.h"
#include "ui/logic/call_query.h"

namespace orvane {
namespace {

LocalTime Date(int year, int month, int day) {
  return {year, month, day, 23, 59, 59, 999};
}
int DayOf(int year, int month, int day) {
  return static_cast<int>(ToDateTime(Date(year, month, day)));
}

TEST(CallDaysTest, FindsMondayAndTheMonths) {
  struct Case {
    LocalTime date;
    int today;
    LocalTime monday, month, previousMonth;
  };
  const Case kCases[] = {
      {Date(2024, 4, 3), 45385, Date(2024, 4, 1), Date(2024, 4, 1), Date(2024, 3, 1)},
      {Date(2024, 1, 1), 45292, Date(2024, 1, 1), Date(2024, 1, 1), Date(2023, 12, 1)},
      {Date(2023, 12, 31), 45291, Date(2023, 12, 25), Date(2023, 12, 1), Date(2023, 11, 1)},
      {Date(2024, 2, 29), 45351, Date(2024, 2, 26), Date(2024, 2, 1), Date(2024, 1, 1)},
      {Date(2024, 3, 1), 45352, Date(2024, 2, 26), Date(2024, 3, 1), Date(2024, 2, 1)},
      // The clocks change in the early morning of these Sundays.
      {Date(2024, 3, 31), 45382, Date(2024, 3, 25), Date(2024, 3, 1), Date(2024, 2, 1)},
      {Date(2024, 10, 27), 45592, Date(2024, 10, 21), Date(2024, 10, 1), Date(2024, 9, 1)},
      {Date(2024, 7, 31), 45504, Date(2024, 7, 29), Date(2024, 7, 1), Date(2024, 6, 1)},
      {Date(2100, 3, 1), 73110, Date(2100, 3, 1), Date(2100, 3, 1), Date(2100, 2, 1)}};
  const auto day = [](const LocalTime& date) { return static_cast<int>(ToDateTime(date)); };
  for (const Case& c : kCases) {
    EXPECT_EQ(CallDaysOf(c.date),
              (CallDays{c.today, day(c.monday), day(c.month), day(c.previousMonth)}))
        << TimeText(c.date);
  }
}

TEST(CallDaysTest, TakesDateTimesApart) {
  for (const LocalTime& time :
       {LocalTime{2024, 2, 29, 0, 0, 0, 0}, LocalTime{2024, 12, 31, 23, 59, 59, 0},
        LocalTime{1899, 12, 30, 0, 0, 1, 0}, LocalTime{9999, 12, 31, 9, 5, 7, 0}}) {
    EXPECT_EQ(ToLocalTime(ToDateTime(time)), time) << TimeText(time);
  }
  EXPECT_EQ(ToLocalTime(45385 - 1e-7), (LocalTime{2024, 4, 3, 0, 0, 0, 0}));
}

TEST(CallQueryTest, AsksForWhatTheFiltersLeave) {
  // A Wednesday; the Monday before is day 45383.
  const CallDays days = CallDaysOf(Date(2024, 4, 3));
  constexpr CallTab kIn = CallTab::kIncoming, kOut = CallTab::kOutgoing;
  const std::tuple<CallFilter, const char*, const char*> kCases[] = {
      {{kOut, 0}, "", "o"},
      {{kIn, 1}, " TOP 300", "i"},
      {{kOut, 2}, " TOP 100", "o"},
      {{kOut, 3}, " TOP 50", "o"},
      {{kOut, 4}, " TOP 20", "o"},
      {{kOut, 5}, " TOP 10", "o"},
      {{kOut, 6}, "", "o WHERE FIX(CDBL(Zeit))=45385"},
      {{kIn, 7}, "", "i WHERE FIX(CDBL(Zeit))=45384"},
      {{kOut, 8}, "", "o WHERE FIX(CDBL(Zeit))>=45383"},
      {{kOut, 9}, "", "o WHERE FIX(CDBL(Zeit))>45375 AND FIX(CDBL(Zeit))<45383"},
      {{kOut, -1}, "", "o"},
      {{kOut, 10}, "", "o"},
      {{kOut, 0, true, false}, "", "o WHERE Ext=0"},
      {{kOut, 0, false, true}, "", "o WHERE Ext=-1"},
      {{kOut, 0, false, false}, "", "o WHERE Ext=9"},
      {{kOut, 0, true, true, true, false}, "", "o WHERE NOT Nr IS NULL"},
      {{kOut, 0, true, true, false, true}, "", "o WHERE Nr IS NULL"},
      {{kOut, 0, true, true, false, false}, "", "o WHERE Ext=9"},
      {{kOut, 5, false, true, true, false}, " TOP 10", "o WHERE Ext=-1 AND NOT Nr IS NULL"},
      {{kOut, 6, true, false, false, true},
       "",
       "o WHERE FIX(CDBL(Zeit))=45385 AND Ext=0 AND Nr IS NULL"}};
  for (const auto& [filter, top, rest] : kCases) {
    EXPECT_EQ(CallQuery(filter, days),
              std::string("SELECT DISTINCT") + top + " Zeit,Ext,Nr,Firma,Ort,Person FROM " + rest);
  }
}

// The last day of each group in the order of age, as "day caption priority".
std::string GroupsBefore(const LocalTime& today, int oldest) {
  const CallDays days = CallDaysOf(today);
  std::string text;
  CallGroup last;
  for (int day = days.today + 1; day >= oldest; --day) {
    const CallGroup group = CallGroupOf(day, days, GermanFormat());
    if (group == last) continue;
    last = group;
    const LocalTime date = ToLocalTime(day);
    text += std::to_string(date.day) + "." + std::to_string(date.month) + ". " + group.caption +
            " " + std::to_string(group.priority) + "\n";
  }
  return text;
}

TEST(CallGroupTest, GroupsByAge) {
  const std::pair<LocalTime, const char*> kCases[] = {
      // A Sunday at the end of a month, with a whole week behind it.
      {Date(2024, 3, 31),
       "1.4. Unkategorisiert 0\n31.3. Heute 1\n30.3. Gestern 2\n29.3. Wochentag 5 3\n"
       "28.3. Wochentag 4 4\n27.3. Wochentag 3 5\n26.3. Wochentag 2 6\n25.3. Wochentag 1 7\n"
       "24.3. Letzte Woche 10\n17.3. Vor zwei Wochen 11\n10.3. Vor drei Wochen 12\n"
       "3.3. Diesen Monat 13\n29.2. Letzten Monat 14\n31.1. Älter 15\n"},
      // A Monday: yesterday belongs to the last week, but is yesterday.
      {Date(2024, 1, 1),
       "2.1. Unkategorisiert 0\n1.1. Heute 1\n31.12. Gestern 2\n30.12. Letzte Woche 10\n"
       "24.12. Vor zwei Wochen 11\n17.12. Vor drei Wochen 12\n10.12. Letzten Monat 14\n"
       "30.11. Älter 15\n"},
      // The week groups reach back into the month before.
      {Date(2024, 3, 6),
       "7.3. Unkategorisiert 0\n6.3. Heute 1\n5.3. Gestern 2\n4.3. Wochentag 1 3\n"
       "3.3. Letzte Woche 10\n25.2. Vor zwei Wochen 11\n18.2. Vor drei Wochen 12\n"
       "11.2. Letzten Monat 14\n31.1. Älter 15\n"}};
  for (const auto& [today, groups] : kCases) {
    EXPECT_EQ(GroupsBefore(today, DayOf(2023, 11, 1)), groups) << TimeText(today);
  }
}

TEST(CallGroupTest, PutsTheNewestCallFirst) {
  const CallDays days = CallDaysOf(Date(2024, 4, 3));
  std::vector<JournalCall> calls;
  for (const auto& [time, number] : {std::pair{45384.2, "1"},
                                     {45385.0, "2"},
                                     {45385.9, "3"},
                                     {45386.0, "4"},
                                     {45385.0, "5"},
                                     {-3e5, "6"}}) {
    calls.push_back({time, false, number, "", "", ""});
  }
  calls.push_back({std::nullopt, false, "7", "", "", ""});
  std::string text;
  for (const GroupedCalls& group : GroupCalls(calls, days, GermanFormat())) {
    text += group.group.caption;
    for (const JournalCall& call : group.calls) text += " " + call.number;
    text += "\n";
  }
  EXPECT_EQ(text, "Unkategorisiert 4\nHeute 3 2 5\nGestern 1\nÄlter 6 7\n");
}

TEST(CallColumnsTest, ComeBackAsStored) {
  const CallColumns columns{{{CallColumn::kPerson, 90},
                             {CallColumn::kTime, 110},
                             {CallColumn::kNumber, 120},
                             {CallColumn::kPlace, 16},
                             {CallColumn::kCompany, 2000}},
                            CallColumn::kCompany,
                            false};
  const std::string text = CallColumnsText(columns);
  EXPECT_EQ(text, "3:0;5:90;1:110;2:120;4:16;3:2000;");
  EXPECT_EQ(ParseCallColumns(text), columns);
  EXPECT_EQ(ParseCallColumns("3:0;5:90;1:110;2:120;4:-5;3:99999;"), columns);
  for (const char* const bad :
       {"", "3", "3:0", "3:0;", "x:0;5:90;1:110;2:120;4:16;3:2000;", "3:0;5:90;1:110;2:120;4:16;",
        "3:0;5:90;1:110;2:120;4:16;3:2000", "3:0;5:90;5:110;2:120;4:16;3:2000;",
        "3:0;6:90;1:110;2:120;4:16;3:2000;", "0:0;5:90;1:110;2:120;4:16;3:2000;",
        "3:0;5:90;1:110;2:120;4:16;3:99999999999;", "3:0;5:90;1:110;2:120;4:16;3:2000;1:5;"}) {
    EXPECT_EQ(ParseCallColumns(bad), std::nullopt) << bad;
  }
}

}  // namespace
}  // namespace orvane
