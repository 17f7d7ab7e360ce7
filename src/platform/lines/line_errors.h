#pragma once

#include <cstdint>

#include "platform/errors.h"

namespace orvane {

// The line interface's error of that number with the description it has in German.
TapiError MakeLineError(std::int32_t number);

}  // namespace orvane
