#pragma once

#include <cstdint>

#include "app/program_state.h"
#include "platform/tapi_control.h"

namespace orvane {

// Opens a telephone line with the line control's own constants; its identifier from now on. Throws
// TapiError.
std::int32_t OpenTapiLine(TapiControl& tapi, std::int32_t line);

// Opens the line of the settings, found by its name; false when there is none of that name. Throws
// TapiError when it is there and refuses. DialSettings::tapiLineId follows.
bool OpenConfiguredLine(TapiControl& tapi, DialSettings& settings);

}  // namespace orvane
