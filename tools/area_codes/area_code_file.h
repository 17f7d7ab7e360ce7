#pragma once

#include <filesystem>

#include "area_codes/area_code.h"

namespace orvane {

// Creates an area-code database with these rows; equal rows make equal bytes. Throws
// std::runtime_error when the file exists or cannot be written, or when a prefix comes twice.
void CreateAreaCodeFile(const std::filesystem::path& file, const AreaCodes& codes);

}  // namespace orvane
