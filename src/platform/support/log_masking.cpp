#include "platform/support/log_masking.h"

#include <algorithm>
#include <vector>

#include "platform/text/text_tools.h"

namespace orvane {
namespace {

constexpr std::string_view kLeftOut = "…";
constexpr std::string_view kMessagePrefix = "TX:";
// Before the only quoted word of the program's own.
constexpr std::string_view kProcedure = "Prozedur: ";
constexpr std::string_view kNumberCharacters = "0123456789 ()/+-#*!.";
constexpr std::ptrdiff_t kDigitsShown = 3;
constexpr std::ptrdiff_t kShortestNumberDigits = 6;
// Longer ones are no user numbers and no keys, and telephone numbers begin with 0.
constexpr std::size_t kLongestKey = 7;

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

// Those of the digits at these places but the last three become stars.
template <typename Counts>
std::string Starred(std::string_view text, const Counts& counts) {
  std::string masked(text);
  std::ptrdiff_t left = -kDigitsShown;
  for (std::size_t i = 0; i < masked.size(); ++i) left += counts(i) ? 1 : 0;
  for (std::size_t i = 0; i < masked.size() && left > 0; ++i) {
    if (!counts(i)) continue;
    masked[i] = '*';
    --left;
  }
  return masked;
}

std::string MaskedDigits(std::string_view text) {
  return Starred(text, [text](std::size_t i) { return IsDigit(text[i]); });
}

// A number as people write it; what else stands in it may be a name.
std::string MaskedNumber(std::string_view number) {
  const std::size_t end = std::min(number.find_first_not_of(kNumberCharacters), number.size());
  return MaskedDigits(number.substr(0, end)) + std::string(end < number.size() ? kLeftOut : "");
}

// Digits in somebody else's words that are long enough to be a telephone number. Those of errors
// are negative or hexadecimal.
std::string MaskedDigitRuns(std::string_view text) {
  std::string masked;
  while (!text.empty()) {
    const std::size_t begin = std::min(text.find_first_of("0123456789"), text.size());
    const std::size_t end = std::min(text.find_first_not_of("0123456789 /-", begin), text.size());
    const bool ofError = text.substr(begin).starts_with("0x") ||
                         (begin > 0 && (text[begin - 1] == '-' || text[begin - 1] == 'x'));
    const std::string_view run = text.substr(begin, end - begin);
    masked += text.substr(0, begin);
    masked += !ofError && std::ranges::count_if(run, IsDigit) >= kShortestNumberDigits
                  ? MaskedDigits(run)
                  : std::string(run);
    text.remove_prefix(end);
  }
  return masked;
}

std::string MaskedName(std::string_view name) {
  return std::string(name.empty() ? name : kLeftOut);
}

// The account of a SIP line is often a person; its server tells which line it is.
std::string MaskedLineName(std::string_view name) {
  const std::size_t at = name.find('@');
  if (!name.starts_with("sip:") || at == std::string_view::npos) return MaskedDigitRuns(name);
  return "sip:" + std::string(kLeftOut) + std::string(name.substr(at));
}

std::string MaskedKey(const std::string& key) {
  const bool isKey = key.size() <= kLongestKey && std::ranges::all_of(key, IsDigit) &&
                     (key.size() <= 1 || key.front() != '0');
  return isKey ? key : std::string(kLeftOut);
}

// Company, person and place by default; what else the position says.
std::string MaskedDialParameter(const std::string& parameter, std::size_t position) {
  switch (position) {
    case 1:
      return parameter == "KillMySelf" ? parameter : MaskedNumber(parameter);
    case 0:
      return std::string(parameter.size() > 1 ? kLeftOut : std::string_view(parameter));
    case 5:
    case 6:
      return MaskedKey(parameter);
    default:
      return MaskedName(parameter);
  }
}

// A "~" in a name would put what follows in the place of a command.
std::string MaskedCommand(const std::string& command) {
  return command == "Dial" || command == "TAPI_ReInit" ? command : MaskedName(command);
}

std::string MaskedParameters(const std::string& command, const std::string& text) {
  if (command == "TAPI_ReInit") return MaskedLineName(text);
  std::string masked;
  const std::vector<std::string> parameters = Split(text, '|');
  for (std::size_t i = 0; i < parameters.size(); ++i) {
    if (i > 0) masked += '|';
    masked += command == "Dial" ? MaskedDialParameter(parameters[i], i) : MaskedName(parameters[i]);
  }
  return masked;
}

// The host user, then pairs of a command and its parameters.
std::string MaskedMessage(std::string_view message) {
  const bool usual = message.starts_with(kMessagePrefix);
  std::string masked(usual ? kMessagePrefix : "");
  const std::vector<std::string> fields =
      Split(message.substr(usual ? kMessagePrefix.size() : 0), '~');
  masked += MaskedKey(fields.front());
  for (std::size_t i = 1; i < fields.size(); ++i) {
    masked += '~';
    const bool isCommand = i % 2 == 1;
    masked += isCommand ? MaskedCommand(fields[i]) : MaskedParameters(fields[i - 1], fields[i]);
  }
  return masked;
}

// With a drive, of a server, of this system, or of this system as the host writes it.
bool IsPath(std::string_view text) {
  const bool isDrive = text.size() > 2 && text[1] == ':' && (text[2] == '\\' || text[2] == '/');
  return isDrive || (text.size() > 1 && (text[0] == '/' || text[0] == '\\') && !IsDigit(text[1]));
}

// The folder of a system's user bears his name.
std::string MaskedPath(std::string_view path) {
  std::string masked(path);
  for (const std::string_view parent : {"\\Users\\", "/Users/", "/home/", "\\home\\"}) {
    const std::size_t at = masked.find(parent);
    if (at == std::string::npos) continue;
    const std::size_t begin = at + parent.size();
    const std::size_t end = std::min(masked.find_first_of("\\/", begin), masked.size());
    masked.replace(begin, end - begin, kLeftOut);
  }
  return masked;
}

// What stands in quotes is data, unless it is the path of a file or a part of the program.
std::string MaskedDetail(std::string_view text) {
  std::string masked;
  while (!text.empty()) {
    const std::size_t open = text.find_first_of("'\"");
    masked += MaskedDigitRuns(text.substr(0, open));
    if (open == std::string_view::npos) break;
    const std::size_t close = std::min(text.find(text[open], open + 1), text.size());
    const std::string_view quoted = text.substr(open + 1, close - open - 1);
    masked += text[open];
    masked += masked.ends_with(std::string(kProcedure) + text[open]) ? std::string(quoted)
              : IsPath(quoted)                                       ? MaskedPath(quoted)
                                                                     : MaskedName(quoted);
    if (close < text.size()) masked += text[close];
    text.remove_prefix(std::min(close + 1, text.size()));
  }
  return masked;
}

}  // namespace

std::string Masked(const LogPart& part) {
  switch (part.kind) {
    case LogPart::Kind::kNumber:
      return MaskedNumber(part.text);
    case LogPart::Kind::kModem:
      return MaskedDigits(part.text);
    case LogPart::Kind::kPath:
      return MaskedPath(part.text);
    case LogPart::Kind::kName:
      return MaskedName(part.text);
    case LogPart::Kind::kLineName:
      return MaskedLineName(part.text);
    case LogPart::Kind::kMessage:
      return MaskedMessage(part.text);
    case LogPart::Kind::kDetail:
      return MaskedDetail(part.text);
    case LogPart::Kind::kPlain:
      break;
  }
  return std::string(part.text);
}

}  // namespace orvane
