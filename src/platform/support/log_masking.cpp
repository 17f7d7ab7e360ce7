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
constexpr std::ptrdiff_t kDigitsShown = 3;
// Longer ones are no user numbers and no keys, and telephone numbers begin with 0.
constexpr std::size_t kLongestKey = 7;

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

// All digits but the last three become stars.
std::string MaskedNumber(std::string_view number) {
  std::string masked(number);
  auto left = std::ranges::count_if(masked, IsDigit) - kDigitsShown;
  for (char& c : masked) {
    if (IsDigit(c) && left-- > 0) c = '*';
  }
  return masked;
}

std::string MaskedName(std::string_view name) {
  return std::string(name.empty() ? name : kLeftOut);
}

// The account of a SIP line is often a person; its server tells which line it is.
std::string MaskedLineName(std::string_view name) {
  const std::size_t at = name.find('@');
  if (!name.starts_with("sip:") || at == std::string_view::npos) return std::string(name);
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
    case 5:
    case 6:
      return MaskedKey(parameter);
    default:
      return MaskedName(parameter);
  }
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
    masked += isCommand ? MaskedNumber(fields[i]) : MaskedParameters(fields[i - 1], fields[i]);
  }
  return masked;
}

// What stands in quotes is data, unless it is the path of a file or a part of the program.
std::string MaskedDetail(std::string_view text) {
  std::string masked;
  while (!text.empty()) {
    const std::size_t open = text.find_first_of("'\"");
    masked += text.substr(0, open);
    if (open == std::string_view::npos) break;
    const std::size_t close = std::min(text.find(text[open], open + 1), text.size());
    const std::string_view quoted = text.substr(open + 1, close - open - 1);
    const bool isKnown =
        masked.ends_with(kProcedure) || quoted.find_first_of("\\/") != std::string_view::npos;
    masked += text[open];
    masked += isKnown ? quoted : kLeftOut;
    if (close < text.size()) masked += text[close];
    text.remove_prefix(std::min(close + 1, text.size()));
  }
  return masked;
}

}  // namespace

std::string Masked(const LogPart& part) {
  switch (part.kind) {
    case LogPart::Kind::kNumber:
    case LogPart::Kind::kModem:
      return MaskedNumber(part.text);
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
