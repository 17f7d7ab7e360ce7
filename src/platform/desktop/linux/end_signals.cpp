#include "platform/desktop/linux/end_signals.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>

namespace orvane {
namespace {

constexpr std::array<int, 3> kSignals{SIGTERM, SIGHUP, SIGINT};
// A handler may do little more than write; it has no other way to find its object.
std::atomic<int> writingEnd{-1};

extern "C" void TellOfSignal(int /*signal*/) {
  const int before = errno;
  const char byte = 0;
  // A pipe that is full has told already.
  [[maybe_unused]] const auto written = write(writingEnd.load(), &byte, 1);
  errno = before;
}

// A program that was started with nohup goes on when the terminal goes.
bool IsSwitchedOff(int signal) {
  struct sigaction current {};
  return sigaction(signal, nullptr, &current) == 0 && current.sa_handler == SIG_IGN;
}

void Handle(int signal, void (*handler)(int)) {
  struct sigaction action {};
  action.sa_handler = handler;
  action.sa_flags = SA_RESTART;
  sigaction(signal, &action, nullptr);
}

}  // namespace

EndSignals::EndSignals() {
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
  reading_ = FileDescriptor(ends[0]);
  writingEnd = ends[1];
  notifier_ = std::make_unique<QSocketNotifier>(ends[0], QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                   [this] { OnSignal(); });
  for (const int signal : kSignals) {
    if (!IsSwitchedOff(signal)) Handle(signal, &TellOfSignal);
  }
}

EndSignals::~EndSignals() {
  for (const int signal : kSignals) {
    if (!IsSwitchedOff(signal)) Handle(signal, SIG_DFL);
  }
  close(writingEnd.exchange(-1));
}

void EndSignals::OnSignal() {
  std::array<char, 16> bytes{};
  while (read(reading_.Get(), bytes.data(), bytes.size()) > 0) {
  }
  if (handler_) handler_(When::kSoon);
}

}  // namespace orvane
