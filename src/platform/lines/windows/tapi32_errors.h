#pragma once

#include <cstdint>

#include "platform/errors.h"

namespace orvane {

// The failure that a telephony function's negative result stands for.
TapiError LineFailure(std::int32_t result);

// Passes a result on; a negative one is thrown as TapiError.
std::int32_t Checked(std::int32_t result);

}  // namespace orvane
