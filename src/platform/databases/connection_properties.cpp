#include "platform/databases/connection_properties.h"

#include <algorithm>
#include <array>

#include "platform/databases/database_errors.h"
#include "platform/errors.h"
#include "platform/text/text_tools.h"

namespace orvane {
namespace {

struct ModeName {
  DbMode mode;
  std::string_view name;
};
constexpr std::array<ModeName, 4> kModeNames{{{DbMode::kUnknown, "Share Deny None"},
                                              {DbMode::kRead, "Read"},
                                              {DbMode::kWrite, "Write"},
                                              {DbMode::kReadWrite, "ReadWrite"}}};
constexpr std::string_view kBlanks = " \t\r\n";

[[noreturn]] void RefuseText() {
  throw DatabaseError(kDbErrorFailed, "Die Verbindungszeichenfolge ist ungültig.");
}

std::string Quoted(std::string_view value) {
  const bool plain = !value.empty() && value == Trimmed(value, kBlanks) &&
                     value.find_first_of(";=\"'") == std::string_view::npos;
  if (plain) return std::string(value);
  std::string result = "\"";
  for (const char c : value) result.append(c == '"' ? 2U : 1U, c);
  return result + '"';
}

// Takes the value at the front of `text`, and the ";" behind it.
std::string TakeValue(std::string_view& text) {
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  std::string value;
  if (!text.empty() && (text.front() == '"' || text.front() == '\'')) {
    const char quote = text.front();
    std::size_t i = 1;
    for (;; ++i) {
      if (i >= text.size()) RefuseText();
      if (text[i] == quote && (i + 1 >= text.size() || text[i + 1] != quote)) break;
      if (text[i] == quote) ++i;
      value += text[i];
    }
    text = Trimmed(text.substr(i + 1), kBlanks);
    if (!text.empty() && text.front() != ';') RefuseText();
  } else {
    const std::string_view plain = text.substr(0, text.find(';'));
    value = Trimmed(plain, kBlanks);
    text.remove_prefix(plain.size());
  }
  if (!text.empty()) text.remove_prefix(1);
  return value;
}

}  // namespace

ConnectionProperties ConnectionProperties::Parse(std::string_view text) {
  ConnectionProperties result;
  for (text = Trimmed(text, kBlanks); !text.empty(); text = Trimmed(text, kBlanks)) {
    if (text.front() == ';') {
      text.remove_prefix(1);
      continue;
    }
    const std::size_t equals = text.find('=');
    const std::string_view name = Trimmed(text.substr(0, equals), kBlanks);
    if (equals == std::string_view::npos || name.empty() ||
        name.find_first_of(";\"'") != std::string_view::npos) {
      RefuseText();
    }
    text.remove_prefix(equals + 1);
    result.Set(name, TakeValue(text));
  }
  return result;
}

void ConnectionProperties::Set(std::string_view name, std::string_view value) {
  name = Trimmed(name, kBlanks);
  if (name.empty() || name.find_first_of("=;\"'") != std::string_view::npos) {
    ThrowNoSuchField();
  }
  if (EqualsIgnoringCase(name, "Provider")) {
    provider_ = value;
    return;
  }
  if (EqualsIgnoringCase(name, "Mode")) {
    for (const ModeName& known : kModeNames) {
      if (EqualsIgnoringCase(known.name, value)) mode_ = known.mode;
    }
    return;
  }
  for (auto& [known, old] : values_) {
    if (EqualsIgnoringCase(known, name)) {
      old = value;
      return;
    }
  }
  values_.emplace_back(name, value);
}

std::string ConnectionProperties::Get(std::string_view name) const {
  for (const auto& [known, value] : values_) {
    if (EqualsIgnoringCase(known, name)) return value;
  }
  return {};
}

std::string ConnectionProperties::ToString() const {
  const bool keepPassword = EqualsIgnoringCase(Get("Persist Security Info"), "true");
  std::string result = "Provider=" + Quoted(provider_);
  for (const ModeName& known : kModeNames) {
    if (known.mode == mode_) result.append(";Mode=").append(known.name);
  }
  for (const auto& [name, value] : values_) {
    if (!keepPassword && EqualsIgnoringCase(name, "Password")) continue;
    result.append(";").append(name).append("=").append(Quoted(value));
  }
  return result;
}

}  // namespace orvane
