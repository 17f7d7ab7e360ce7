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
    if (pid_ == 0) _exit(CodeOf(body));
  }
  ~ChildProcess() { Wait(); }
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  pid_t Pid() const { return pid_; }
  bool Finished() const {
    siginfo_t info{};
    return pid_ == 0 ||
           (waitid(P_PID, static_cast<id_t>(pid_), &info, WEXITED | WNOHANG | WNOWAIT) == 0 &&
            info.si_pid == pid_);
  }
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
  // An exception must not leave the child running the parent's tests.
  static int CodeOf(const std::function<int()>& body) {
    try {
      return body();
    } catch (...) {
      return kThrew;
    }
  }
  static constexpr int kThrew = 125;

  pid_t pid_;
  int code_ = -1;
};

}  // namespace orvane
