#pragma once

#include "area_codes/area_code.h"

namespace orvane {

// The area codes of Germany with their leading 0.
AreaCodes GermanAreaCodes();

// The country codes; a code of several countries has the name of the largest.
AreaCodes CountryCodes();

// The areas of country code 1 that the dialer looks up one by one, with the 1.
AreaCodes AmericanAreaCodes();

}  // namespace orvane
