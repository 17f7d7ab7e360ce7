#pragma once

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <exception>
#include <functional>
#include <string>
#include <string_view>

namespace orvane {

// An account without any rights, on every machine.
inline constexpr unsigned kNobody = 65534;

// Another process that runs `work`, which may tell this one lines of text; killed and waited for
// when the object dies. No database may be open when it is started.
class ChildProcess {
 public:
  using Say = std::function<void(std::string_view)>;

  explicit ChildProcess(const std::function<int(const Say&)>& work) {
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0 || (process_ = fork()) < 0) std::terminate();
    if (process_ == 0) _exit(CodeOf(work, ends[1]));
    close(ends[1]);
    pipe_ = ends[0];
  }
  ~ChildProcess() {
    Kill();
    close(pipe_);
  }
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  // The next line that the child says; empty when it has said all and ended.
  std::string Line() const {
    std::string line;
    for (char c = 0; read(pipe_, &c, 1) == 1 && c != '\n';) line += c;
    return line;
  }
  bool Finished() const {
    siginfo_t info{};
    return process_ == 0 ||
           (waitid(P_PID, static_cast<id_t>(process_), &info, WEXITED | WNOHANG | WNOWAIT) == 0 &&
            info.si_pid == process_);
  }
  // The exit code, or -1 when a signal ended it.
  int Wait() {
    int status = 0;
    if (process_ > 0 && waitpid(process_, &status, 0) == process_) {
      code_ = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
      process_ = 0;
    }
    return code_;
  }
  void Kill() {
    if (process_ > 0) kill(process_, SIGKILL);
    Wait();
  }

 private:
  // An exception must not leave the child running the parent's tests.
  static int CodeOf(const std::function<int(const Say&)>& work, int out) {
    const Say say = [out](std::string_view text) {
      const std::string line = std::string(text) + "\n";
      if (write(out, line.data(), line.size()) < 0) _exit(1);
    };
    try {
      return work(say);
    } catch (const std::exception& error) {
      say(error.what());
      return 125;
    }
  }

  pid_t process_ = 0;
  int pipe_ = -1;
  int code_ = -1;
};

}  // namespace orvane
