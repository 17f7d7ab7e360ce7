#pragma once

#include <cstdint>

namespace orvane {

// Passes a telephony function's result on; a negative one is thrown as TapiError.
std::int32_t Checked(std::int32_t result);

}  // namespace orvane
