#include "app/line_opening.h"

#include <optional>
#include <string>

namespace orvane {
namespace {

std::optional<std::int32_t> FindLine(TapiControl& tapi, const std::string& name) {
  const int count = tapi.LineCount();
  for (int line = 0; line < count; ++line) {
    if (tapi.LineName(line) == name) return line;
  }
  return std::nullopt;
}

}  // namespace

std::int32_t OpenTapiLine(TapiControl& tapi, std::int32_t line) {
  return tapi.OpenLine(line, kOpenPrivileges, kOpenMediaModes, kOpenOptions);
}

bool OpenConfiguredLine(TapiControl& tapi, DialSettings& settings) {
  settings.tapiLineId = kNoTapiLine;
  if (settings.tapiLineName.empty()) return false;
  // A line that was closed a moment ago is still known; one that is missed is looked for anew.
  std::optional<std::int32_t> line;
  if (tapi.Tag() != TapiTag::kNone) line = FindLine(tapi, settings.tapiLineName);
  if (!line && tapi.NeedsInitialise()) {
    tapi.Initialise();
    line = FindLine(tapi, settings.tapiLineName);
  }
  if (!line) return false;
  settings.tapiLineId = OpenTapiLine(tapi, *line);
  return true;
}

}  // namespace orvane
