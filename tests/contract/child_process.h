#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <functional>

namespace orvane {

// An account without any rights, on every machine.
inline constexpr unsigned kNobody = 65534;

// Runs `body` in a forked process. Wait returns its exit code, or -1 when a signal ended it.
class ChildProcess {
 public:
  explicit ChildProcess(const std::function<int()>& body) : pid_(fork()) {
    if (pid_ == 0) _exit(body());
  }
  ~ChildProcess() { Wait(); }
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  pid_t Pid() const { return pid_; }
  int Wait() {
    if (pid_ > 0) {
      int status = 0;
      waitpid(pid_, &status, 0);
      code_ = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
      pid_ = 0;
    }
    return code_;
  }

 private:
  pid_t pid_;
  int code_ = -1;
};

}  // namespace orvane
