#pragma once

#include <string>

namespace orvane {

// The geocoder's name of a German place as people write it: districts left out, abbreviations
// written out, the river or region behind a name in brackets.
std::string PlaceName(const std::string& geocoderName);

}  // namespace orvane
