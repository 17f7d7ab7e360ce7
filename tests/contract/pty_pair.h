#pragma once

#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <string>
#include <string_view>

namespace orvane {

// A serial cable in software: the device that a program opens and the far end that a test plays.
class PtyPair {
 public:
  PtyPair() : master_(posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC)) {
    grantpt(master_);
    unlockpt(master_);
    std::array<char, 64> name{};
    ptsname_r(master_, name.data(), name.size());
    path_ = name.data();
    slave_ = open(name.data(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    termios raw{};
    tcgetattr(slave_, &raw);
    cfmakeraw(&raw);
    tcsetattr(slave_, TCSANOW, &raw);
  }
  ~PtyPair() { Unplug(); }
  PtyPair(const PtyPair&) = delete;
  PtyPair& operator=(const PtyPair&) = delete;

  const std::string& SlavePath() const { return path_; }

  void Feed(std::string_view bytes) const {
    if (write(master_, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size())) abort();
  }
  // What arrived since the last call; returns at once.
  std::string Sent() const {
    std::string sent;
    std::array<char, 4096> block{};
    for (ssize_t n = 0; (n = read(master_, block.data(), block.size())) > 0;) {
      sent.append(block.data(), static_cast<std::size_t>(n));
    }
    return sent;
  }
  void Unplug() {
    if (master_ >= 0) close(master_);
    if (slave_ >= 0) close(slave_);
    master_ = slave_ = -1;
  }

 private:
  int master_;
  int slave_ = -1;
  std::string path_;
};

}  // namespace orvane
