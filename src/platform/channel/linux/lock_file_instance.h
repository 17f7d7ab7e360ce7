#pragma once

#include <filesystem>

#include "platform/channel/linux/session_directory.h"
#include "platform/single_instance.h"

namespace orvane {

// Holds a lock on a file of the session's folder; the system takes it back when the process dies.
class LockFileInstance : public SingleInstance {
 public:
  explicit LockFileInstance(std::filesystem::path folder = SessionDirectory::DefaultPath());

  // True as well when the folder cannot be used: then no other instance can be found either.
  bool Claim() override;

 private:
  std::filesystem::path folder_;
  FileDescriptor lock_;
};

}  // namespace orvane
