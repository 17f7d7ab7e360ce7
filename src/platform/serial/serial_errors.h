#pragma once

#include <cstdint>

#include "platform/errors.h"

namespace orvane {

// The serial control's error of that number with the description it has in German.
SerialError MakeSerialError(std::int32_t number);

}  // namespace orvane
