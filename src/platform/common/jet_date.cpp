#include "platform/common/jet_date.h"

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

std::optional<double> ParseJetDate(std::string_view text) {
  DateScanner scanner(text);
  const int month = scanner.Number(1, 2);
  scanner.Separator('/');
  const int day = scanner.Number(1, 2);
  scanner.Separator('/');
  const int year = scanner.Number(4, 4);
  int hour = 0;
  int minute = 0;
  int second = 0;
  if (!scanner.AtEnd()) {
    scanner.Separator(' ');
    hour = scanner.Number(1, 2);
    scanner.Separator(':');
    minute = scanner.Number(2, 2);
    scanner.Separator(':');
    second = scanner.Number(2, 2);
  }
  const std::chrono::year_month_day date{std::chrono::year(year),
                                         std::chrono::month(static_cast<unsigned>(month)),
                                         std::chrono::day(static_cast<unsigned>(day))};
  if (!scanner.Complete() || !date.ok() || year < 100 || hour > 23 || minute > 59 || second > 59) {
    return std::nullopt;
  }
  using std::chrono::December;
  const std::chrono::sys_days epoch = std::chrono::year(1899) / December / 30;
  const auto days = static_cast<double>((std::chrono::sys_days(date) - epoch).count());
  constexpr double kSecondsPerDay = 86400;
  const double fraction = (hour * 3600 + minute * 60 + second) / kSecondsPerDay;
  return days < 0 ? days - fraction : days + fraction;
}

}  // namespace orvane
