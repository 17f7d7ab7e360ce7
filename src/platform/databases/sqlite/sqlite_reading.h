#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

namespace orvane {

// The first bytes of any file, less if it is shorter or cannot be read. SQLite reads them, because
// on some systems the end of any other look into a file takes away the locks that this program's
// connections hold on it.
std::string ReadThroughSqlite(const std::filesystem::path& file, std::size_t bytes);

}  // namespace orvane
