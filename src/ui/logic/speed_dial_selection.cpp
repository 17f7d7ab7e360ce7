#include "ui/logic/speed_dial_selection.h"

#include <limits>

#include "app/field_splitter.h"

namespace orvane {
namespace {

constexpr std::string_view kNameEnd = "</TextBlock>";

std::optional<std::string> NameInMarkup(std::string_view text, SpeedDialKind kind) {
  const std::string shell = SpeedDialItemMarkup("", kind);
  const std::string_view whole = shell;
  const std::size_t nameAt = whole.find(kNameEnd);
  if (nameAt == std::string_view::npos || text.size() < whole.size()) return std::nullopt;
  const std::string_view before = whole.substr(0, nameAt);
  const std::string_view after = whole.substr(nameAt);
  if (!text.starts_with(before) || !text.ends_with(after)) return std::nullopt;
  return std::string(text.substr(before.size(), text.size() - whole.size()));
}

}  // namespace

std::string SpeedDialNumber(std::string_view numbers, int listIndex) {
  if (listIndex < 0 || listIndex >= std::numeric_limits<std::uint8_t>::max()) return {};
  std::string field = GetField(numbers, listIndex + 1, "|");
  return field == kPipeEnd ? std::string() : field;
}

bool MarkedExternal(std::string_view number) {
  return number.ends_with("ext.)");
}

SpeedDialEntry ParseSpeedDialEntry(std::string_view text) {
  for (const SpeedDialKind kind : {SpeedDialKind::kInternal, SpeedDialKind::kExternal}) {
    if (auto name = NameInMarkup(text, kind)) return {*std::move(name), kind};
  }
  return {std::string(text), std::nullopt};
}

}  // namespace orvane
