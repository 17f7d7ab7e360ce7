// Sends each line of its input to the dialer as the host does, and writes when it was sent and when
// the dialer had handled it, in nanoseconds of the monotonic clock.

#include <QCoreApplication>
#include <chrono>
#include <iostream>
#include <string>

#include "platform/native/native.h"
#include "remote/copy_data_text.h"
#include "remote/senders.h"

namespace {

std::int64_t Nanoseconds() {
  return std::chrono::nanoseconds(std::chrono::steady_clock::now().time_since_epoch()).count();
}

bool SendToDialer(orvane::HostChannel& channel, const std::string& text) {
  const auto dialer = orvane::FindDialWindow(channel);
  return dialer && channel.SendCopyData(*dialer, orvane::MakeCopyData(text));
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  const auto channel = orvane::native::MakeChannel();
  for (std::string line; std::getline(std::cin, line);) {
    const auto sent = Nanoseconds();
    if (!SendToDialer(*channel, line)) return 1;
    std::cout << sent << ' ' << Nanoseconds() << std::endl;
  }
  return 0;
}
