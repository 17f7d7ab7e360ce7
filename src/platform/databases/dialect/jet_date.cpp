#include "platform/databases/dialect/jet_date.h"
#include "platform/text/day_numbers.h"

#include <chrono>

namespace orvane {
namespace {

// Reads numbers and separators from the front of a text; every failure sticks.
class DateScanner {
 public:
  explicit DateScanner(std::string_view text) : rest_(text) {}

  int Number(std::size_t minDigits, std::size_t maxDigits) {
    int value = 0;
    std::size_t digits = 0;
    for (; digits < maxDigits && digits < rest_.size(); ++digits) {
      const char c = rest_[digits];
      if (c < '0' || c > '9') break;
      value = value * 10 + (c - '0');
    }
    if (digits < minDigits) failed_ = true;
    rest_.remove_prefix(digits);
    return value;
  }
  void Separator(char wanted) {
    if (rest_.empty() || rest_.front() != wanted) {
      failed_ = true;
    } else {
      rest_.remove_prefix(1);
    }
  }
  bool AtEnd() const { return rest_.empty(); }
  bool Complete() const { return !failed_ && rest_.empty(); }

 private:
  std::string_view rest_;
  bool failed_ = false;
};

}  // namespace

std::optional<double> DateNumber(const DateAndTime& date) {
  const std::chrono::year_month_day ymd{std::chrono::year(date.year),
                                        std::chrono::month(static_cast<unsigned>(date.month)),
                                        std::chrono::day(static_cast<unsigned>(date.day))};
  constexpr int kFirstYear = 100;
  constexpr int kLastYear = 9999;
  if (!ymd.ok() || date.year < kFirstYear || date.year > kLastYear || date.hour > 23 ||
      date.minute > 59 || date.second >= 60) {
    return std::nullopt;
  }
  const auto days = static_cast<double>((std::chrono::sys_days(ymd) - kDayZero).count());
  const double fraction =
      (date.hour * 3600 + date.minute * 60 + date.second) / static_cast<double>(kSecondsPerDay);
  return days < 0 ? days - fraction : days + fraction;
}

std::optional<double> ParseJetDate(std::string_view text) {
  DateScanner scanner(text);
  DateAndTime date;
  date.month = scanner.Number(1, 2);
  scanner.Separator('/');
  date.day = scanner.Number(1, 2);
  scanner.Separator('/');
  date.year = scanner.Number(4, 4);
  if (!scanner.AtEnd()) {
    scanner.Separator(' ');
    date.hour = scanner.Number(1, 2);
    scanner.Separator(':');
    date.minute = scanner.Number(2, 2);
    scanner.Separator(':');
    date.second = scanner.Number(2, 2);
  }
  return scanner.Complete() ? DateNumber(date) : std::nullopt;
}

}  // namespace orvane
