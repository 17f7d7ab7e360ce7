#pragma once

#include <filesystem>

#include "sample_contacts.h"

namespace orvane {

// Writes the host's contact database anew. Throws std::runtime_error when the file cannot be
// written.
void WriteContactFile(const std::filesystem::path& file, const SampleContacts& contacts);

}  // namespace orvane
