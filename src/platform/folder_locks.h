#pragma once

#include <string>

namespace orvane {

// Whether the locks by which programs of several machines keep out of each other's way hold in a
// folder.
class FolderLocks {
 public:
  virtual ~FolderLocks() = default;
  // Why they do not, in German, for example the option by which the folder was mounted; empty when
  // they hold or nobody can tell. `folder` as the program composes it. Takes its time.
  virtual std::string Obstacle(const std::string& folder) = 0;
};

// Where the system keeps locks everywhere, or tells nothing about them.
class TrustedFolderLocks : public FolderLocks {
 public:
  std::string Obstacle(const std::string& /*folder*/) override { return {}; }
};

}  // namespace orvane
