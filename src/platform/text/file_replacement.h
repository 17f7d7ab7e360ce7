#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace orvane {

// New content for a file, written beside it. Commit puts it in the file's place as a whole; without
// Commit the file stays as it was. Failures are PlatformError 75 and name the path.
class FileReplacement {
 public:
  // `path` as the program composes it. The folder exists; the file may be missing, but one that is
  // there must be writable.
  FileReplacement(const std::string& path, std::string_view bytes);
  ~FileReplacement();
  FileReplacement(const FileReplacement&) = delete;
  FileReplacement& operator=(const FileReplacement&) = delete;

  void Commit();

 private:
  void Write(std::string_view bytes) const;

  std::string path_;
  std::filesystem::path file_;
  // Empty once it has taken the file's place.
  std::filesystem::path written_;
};

}  // namespace orvane
