#pragma once

#include <filesystem>
#include <string>

namespace orvane {

// A path in UTF-8, which SQLite wants on every system.
inline std::string SqlitePath(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

}  // namespace orvane
