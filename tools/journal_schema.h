#pragma once

#include <filesystem>
#include <string>

namespace orvane {

// Creates the journal file as it is delivered: table `o` for outgoing calls and `i` for incoming
// ones, both empty unless `calls` holds statements that fill them. Throws std::runtime_error when
// the file exists or cannot be written.
void CreateJournalFile(const std::filesystem::path& file, const std::string& calls = {});

}  // namespace orvane
