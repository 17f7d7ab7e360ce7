#pragma once

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <exception>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace orvane {

// Another process that runs `work` and tells this one what it has to say. Killed and waited for
// when the object dies. No database may be open when it is started.
class ChildProcess {
 public:
  // Sends a text to the parent.
  using Say = std::function<void(std::string_view)>;

  explicit ChildProcess(const std::function<void(const Say&)>& work) {
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0) throw std::runtime_error("no pipe");
    process_ = fork();
    if (process_ < 0) throw std::runtime_error("no process");
    if (process_ == 0) {
      close(ends[0]);
      RunWork(work, ends[1]);
    }
    close(ends[1]);
    pipe_ = ends[0];
  }
  ~ChildProcess() {
    Kill();
    close(pipe_);
  }
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  // The next line that the child says, without its end; empty when it has said all and ended.
  std::string Line() {
    std::string line;
    char c = 0;
    while (read(pipe_, &c, 1) == 1 && c != '\n') line += c;
    return line;
  }

  void Kill() {
    if (process_ <= 0) return;
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
    process_ = 0;
  }

 private:
  [[noreturn]] static void RunWork(const std::function<void(const Say&)>& work, int out) {
    const Say say = [out](std::string_view text) {
      const std::string line = std::string(text) + "\n";
      if (write(out, line.data(), line.size()) < 0) _exit(1);
    };
    try {
      work(say);
    } catch (const std::exception& error) {
      say(error.what());
    }
    _exit(0);
  }

  pid_t process_ = 0;
  int pipe_ = -1;
};

}  // namespace orvane
