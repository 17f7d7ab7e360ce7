#pragma once

#include <filesystem>

namespace orvane {

// Creates the empty journal file as it is delivered: table `o` for outgoing calls and `i` for
// incoming ones. Throws std::runtime_error when the file exists or cannot be written.
void CreateJournalFile(const std::filesystem::path& file);

}  // namespace orvane
