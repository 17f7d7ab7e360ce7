#include "platform/databases/jet/linux/jet_reader_process.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>

#include "platform/system/linux/file_descriptor.h"

namespace orvane {
namespace {

using Clock = std::chrono::steady_clock;

// A process that is gone when the object is.
class Child {
 public:
  explicit Child(pid_t process) : process_(process) {}
  ~Child() {
    kill(process_, SIGKILL);
    while (waitpid(process_, nullptr, 0) < 0 && errno == EINTR) {
    }
  }
  Child(const Child&) = delete;
  Child& operator=(const Child&) = delete;

 private:
  pid_t process_;
};

class SpawnActions {
 public:
  SpawnActions(int input, int output) {
    posix_spawn_file_actions_init(&actions_);
    posix_spawn_file_actions_adddup2(&actions_, input, STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions_, output, STDOUT_FILENO);
    posix_spawn_file_actions_addopen(&actions_, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  }
  ~SpawnActions() { posix_spawn_file_actions_destroy(&actions_); }
  SpawnActions(const SpawnActions&) = delete;
  SpawnActions& operator=(const SpawnActions&) = delete;
  const posix_spawn_file_actions_t* Get() const { return &actions_; }

 private:
  posix_spawn_file_actions_t actions_{};
};

// Zero when it could not be started.
pid_t Start(const std::filesystem::path& program, const std::vector<std::string>& names, int input,
            int output) {
  std::vector<std::string> words{program.string()};
  words.insert(words.end(), names.begin(), names.end());
  std::vector<char*> arguments;
  arguments.reserve(words.size() + 1);
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  char* environment[] = {nullptr};
  pid_t process = 0;
  const SpawnActions actions(input, output);
  const int error =
      posix_spawn(&process, program.c_str(), actions.Get(), nullptr, arguments.data(), environment);
  return error == 0 ? process : 0;
}

// Whether there is something to read, or the end, before the deadline.
bool WaitForInput(int pipe, Clock::time_point deadline) {
  while (true) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
    if (left.count() <= 0) return false;
    pollfd entry{pipe, POLLIN, 0};
    const int ready = poll(&entry, 1, static_cast<int>(left.count()));
    if (ready > 0) return true;
    if (ready < 0 && errno != EINTR) return false;
  }
}

JetReaderEnd ReadAll(int pipe, const JetReaderLimits& limits,
                     const std::function<bool(std::string_view)>& sink) {
  const auto deadline = Clock::now() + limits.time;
  std::vector<char> buffer(std::size_t{1} << 16);
  std::size_t bytes = 0;
  while (WaitForInput(pipe, deadline)) {
    const ssize_t count = read(pipe, buffer.data(), buffer.size());
    if (count == 0) return JetReaderEnd::kEnded;
    if (count < 0) {
      if (errno == EINTR) continue;
      return JetReaderEnd::kFailed;
    }
    bytes += static_cast<std::size_t>(count);
    if (bytes > limits.bytes) return JetReaderEnd::kOverLimit;
    if (!sink({buffer.data(), static_cast<std::size_t>(count)})) return JetReaderEnd::kFailed;
  }
  return JetReaderEnd::kOverLimit;
}

}  // namespace

JetReaderEnd RunJetReader(const std::filesystem::path& program, int file,
                          const std::vector<std::string>& names, const JetReaderLimits& limits,
                          const std::function<bool(std::string_view)>& sink) {
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) return JetReaderEnd::kNotStarted;
  const FileDescriptor input(ends[0]);
  FileDescriptor output(ends[1]);
  const pid_t process = Start(program, names, file, output.Get());
  if (process == 0) return JetReaderEnd::kNotStarted;
  const Child child(process);
  output.Reset();
  return ReadAll(input.Get(), limits, sink);
}

}  // namespace orvane
