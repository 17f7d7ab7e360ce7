#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/system/windows/system_handle.h"

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

 private:
  // What the system works with while it reads or writes.
  struct Transfer {
    SystemHandle event;
    OVERLAPPED state{};
    std::string bytes;
  };
  // Ends it, unless the driver ignores that: then its memory is the driver's for good.
  void Cancel(std::unique_ptr<Transfer> transfer);

  SystemHandle file_;
  HANDLE readEvent_;
  // Set while the system reads.
  std::unique_ptr<Transfer> read_;
};

}  // namespace orvane
