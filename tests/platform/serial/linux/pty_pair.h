#pragma once

#include <fcntl.h>
#include <termios.h>

#include <array>
#include <cstdlib>
#include <string>
#include <string_view>

#include "platform/system/linux/file_descriptor.h"

namespace orvane {

// A serial cable in software: the device that a program opens and the far end that a test plays.
class PtyPair {
 public:
  PtyPair() {
    grantpt(master_.Get());
    unlockpt(master_.Get());
    std::array<char, 64> name{};
    ptsname_r(master_.Get(), name.data(), name.size());
    path_ = name.data();
    slave_ = FileDescriptor(open(name.data(), O_RDWR | O_NOCTTY | O_CLOEXEC));
    termios raw{};
    tcgetattr(slave_.Get(), &raw);
    cfmakeraw(&raw);
    tcsetattr(slave_.Get(), TCSANOW, &raw);
  }
  const std::string& SlavePath() const { return path_; }

  void Feed(std::string_view bytes) const {
    if (write(master_.Get(), bytes.data(), bytes.size()) < 0) abort();
  }
  // What arrived since the last call; returns at once.
  std::string Sent() const {
    std::string sent;
    std::array<char, 4096> block{};
    for (ssize_t n = 0; (n = read(master_.Get(), block.data(), block.size())) > 0;) {
      sent.append(block.data(), static_cast<std::size_t>(n));
    }
    return sent;
  }
  void Unplug() {
    master_.Reset();
    slave_.Reset();
  }

 private:
  FileDescriptor master_{posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC)};
  FileDescriptor slave_;
  std::string path_;
};

}  // namespace orvane
