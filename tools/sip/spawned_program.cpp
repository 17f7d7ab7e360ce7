#include "sip/spawned_program.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <stdexcept>

namespace orvane {
namespace {

constexpr int kNotStarted = 127;

// In the new process, where nothing may be allocated any more.
[[noreturn]] void Become(char** words, pid_t parent, const char* folder, const char* output) {
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (getppid() != parent || chdir(folder) != 0) _exit(kNotStarted);
  const int in = open("/dev/null", O_RDONLY);
  const int out = open(output, O_WRONLY | O_CREAT | O_TRUNC, 0600);
  if (in < 0 || out < 0) _exit(kNotStarted);
  dup2(in, STDIN_FILENO);
  dup2(out, STDOUT_FILENO);
  dup2(out, STDERR_FILENO);
  execvp(words[0], words);
  _exit(kNotStarted);
}

}  // namespace

SpawnedProgram::SpawnedProgram(std::vector<std::string> words, const std::filesystem::path& folder,
                               const std::filesystem::path& output) {
  std::vector<char*> pointers;
  pointers.reserve(words.size() + 1);
  for (std::string& word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);
  const pid_t parent = getpid();
  process_ = fork();
  if (process_ == 0) Become(pointers.data(), parent, folder.c_str(), output.c_str());
  if (process_ < 0) throw std::runtime_error("no process for " + words.front());
}

SpawnedProgram::~SpawnedProgram() {
  if (process_ == 0) return;
  kill(process_, SIGKILL);
  waitpid(process_, nullptr, 0);
}

bool SpawnedProgram::Running() {
  if (process_ != 0 && waitpid(process_, nullptr, WNOHANG) != 0) process_ = 0;
  return process_ != 0;
}

}  // namespace orvane
