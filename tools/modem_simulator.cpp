#include "modem_simulator.h"

#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

#include <QTimer>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <system_error>
#include <utility>

namespace orvane {
namespace {

constexpr std::size_t kLongestLine = 1024;
constexpr std::string_view kOk = "\r\nOK\r\n";
constexpr std::string_view kConnect = "\r\nCONNECT\r\n";
constexpr std::string_view kError = "\r\nERROR\r\n";

int OpenMaster(std::string& slavePath) {
  const int master = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
  std::array<char, 64> name{};
  const bool ready = master >= 0 && grantpt(master) == 0 && unlockpt(master) == 0 &&
                     ptsname_r(master, name.data(), name.size()) == 0;
  if (!ready) {
    const int error = errno;
    if (master >= 0) close(master);
    throw std::system_error(error, std::generic_category(), "no pseudo terminal");
  }
  slavePath = name.data();
  return master;
}

// Without raw mode the terminal would echo the modem's answers back to it.
int OpenRawSlave(const std::string& path) {
  const int slave = open(path.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
  termios settings{};
  if (slave >= 0 && tcgetattr(slave, &settings) == 0) {
    cfmakeraw(&settings);
    tcsetattr(slave, TCSANOW, &settings);
  }
  return slave;
}

}  // namespace

ModemSimulator::ModemSimulator()
    : master_(OpenMaster(slavePath_)),
      slave_(OpenRawSlave(slavePath_)),
      notifier_(std::make_unique<QSocketNotifier>(master_, QSocketNotifier::Read)) {
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                   [this] { Receive(); });
}

ModemSimulator::~ModemSimulator() {
  Unplug();
}

void ModemSimulator::Unplug() {
  notifier_.reset();
  if (slave_ >= 0) close(slave_);
  if (master_ >= 0) close(master_);
  slave_ = master_ = -1;
}

void ModemSimulator::Receive() {
  std::array<char, 512> block{};
  const ssize_t count = read(master_, block.data(), block.size());
  if (count <= 0) return;
  const std::string_view received(block.data(), static_cast<std::size_t>(count));
  for (const char c : received) {
    if (c == '\r') {
      const std::string command = std::exchange(line_, {});
      Execute(command);
      if (!notifier_) return;  // unplugged by whoever listens
    } else if (line_.size() < kLongestLine) {
      line_ += c;
    }
  }
}

void ModemSimulator::Execute(const std::string& command) {
  commands_.push_back(command);
  if (answering_) {
    if (command.starts_with("ATDT")) {
      const unsigned call = ++call_;
      if (connectDelay_) {
        QTimer::singleShot(*connectDelay_, notifier_.get(), [this, call] {
          if (call == call_) Reply(kConnect);
        });
      }
    } else {
      if (command == "ATH0") ++call_;
      Reply(command.starts_with("AT") ? kOk : kError);
    }
  }
  const auto handler = onCommand_;
  if (handler) handler(command);
}

void ModemSimulator::Reply(std::string_view text) const {
  // What a full line does not take is lost, as on a real cable without handshaking.
  [[maybe_unused]] const ssize_t written = write(master_, text.data(), text.size());
}

}  // namespace orvane
