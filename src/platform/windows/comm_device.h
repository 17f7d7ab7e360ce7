#pragma once

#include <array>
#include <chrono>
#include <optional>
#include <string_view>

#include "platform/windows/system_handle.h"

namespace orvane {

// An open serial device, 9600 8N1 without handshaking, that is read in the background.
class CommDevice {
 public:
  // Opens COM `port`; `readEvent` is signalled when a read has ended and outlives the device.
  // Throws SerialError.
  CommDevice(int port, HANDLE readEvent);
  ~CommDevice();
  CommDevice(const CommDevice&) = delete;
  CommDevice& operator=(const CommDevice&) = delete;

  // Starts to wait for characters, unless it waits already. False when the device is gone.
  bool StartRead();
  // The number of characters that came, once the event is signalled; 0 when the read has not ended.
  // Nothing when the device is gone.
  std::optional<int> FinishRead();

  enum class Written { kAll, kTooSlow, kFailed };
  // Writes what the device takes within `limit`; the rest of a text that it does not take in time
  // is dropped.
  Written Write(std::string_view bytes, std::chrono::milliseconds limit);
  // Waits until the device has sent everything, at most so long.
  void Drain(std::chrono::milliseconds limit);

 private:
  SystemHandle file_;
  SystemHandle written_;
  OVERLAPPED read_{};
  // The system has read_.
  bool reading_ = false;
  std::array<char, 256> received_{};
};

}  // namespace orvane
