#pragma once

#include <filesystem>

namespace orvane {

// Brings what was written to a file onto the disk, so that it survives a power cut. False when the
// system cannot say that it did.
bool FlushToDisk(const std::filesystem::path& file);

}  // namespace orvane
