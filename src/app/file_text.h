#pragma once

#include <string>

namespace orvane {

// The bytes of a file, given by a path as composed by the program; empty when it does not exist.
// Throws PlatformError (75) when it exists but cannot be read.
std::string ReadWholeFile(const std::string& path);

// Whether the path is not empty and the file can be opened.
bool FileExists(const std::string& path);

}  // namespace orvane
