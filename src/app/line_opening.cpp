#include "app/line_opening.h"

namespace orvane {

std::int32_t OpenTapiLine(TapiControl& tapi, std::int32_t line) {
  return tapi.OpenLine(line, kOpenPrivileges, kOpenMediaModes, kOpenOptions);
}

bool OpenConfiguredLine(TapiControl& tapi, DialSettings& settings) {
  settings.tapiLineId = kNoTapiLine;
  if (settings.tapiLineName.empty()) return false;
  if (tapi.NeedsInitialise()) tapi.Initialise();
  const int count = tapi.LineCount();
  for (int line = 0; line < count; ++line) {
    if (tapi.LineName(line) != settings.tapiLineName) continue;
    settings.tapiLineId = OpenTapiLine(tapi, line);
    return true;
  }
  return false;
}

}  // namespace orvane
