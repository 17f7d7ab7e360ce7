#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <vector>

namespace orvane {

// A program that was started from here. It is killed and waited for when the object dies, and
// killed as well when this process ends in whatever way.
class SpawnedProgram {
 public:
  // Starts `words[0]` as the shell would find it, in `folder`; what it says goes to `output`.
  // Throws std::runtime_error when no process can be made.
  SpawnedProgram(std::vector<std::string> words, const std::filesystem::path& folder,
                 const std::filesystem::path& output);
  ~SpawnedProgram();
  SpawnedProgram(const SpawnedProgram&) = delete;
  SpawnedProgram& operator=(const SpawnedProgram&) = delete;

  // False once it has ended, also when it could not be started at all.
  bool Running();

 private:
  pid_t process_ = 0;
};

}  // namespace orvane
