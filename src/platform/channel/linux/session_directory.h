#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "platform/system/linux/file_descriptor.h"

namespace orvane {

// The folder in which the programs of one user in one desktop session find each other. Held open,
// and addressed through the open descriptor: nobody can put another folder in its place later.
class SessionDirectory {
 public:
  // Below $XDG_RUNTIME_DIR when that is this user's, otherwise below the temporary folder; named
  // after the display.
  static std::filesystem::path DefaultPath();

  // Creates the folder and the one above it where needed, and closes it to others. Nothing when it
  // is not a real folder of this user's, or when others could replace it.
  static std::optional<SessionDirectory> Open(const std::filesystem::path& path);

  int Fd() const { return folder_.Get(); }
  // A path to the entry of that name, short enough for a socket address.
  std::string EntryPath(const std::string& name) const;

 private:
  explicit SessionDirectory(FileDescriptor folder) : folder_(std::move(folder)) {}
  FileDescriptor folder_;
};

}  // namespace orvane
