#pragma once

#include <functional>
#include <set>
#include <string>

#include "platform/serial/port_rules.h"
#include "platform/serial/serial_errors.h"
#include "platform/serial_control.h"

namespace orvane {

// Serial ports in memory. A test plays the far end with Feed, Unplug and `sent`.
class FakeSerial : public SerialControl {
 public:
  void SetCommPort(int port) override { port_ = ChangedCommPort(port_, port, open_); }
  int CommPort() const override { return port_; }

  void SetPortOpen(bool open) override {
    if (open == open_) return;
    if (open) {
      if (busyPorts.count(port_) != 0) throw MakeSerialError(kSerialPortInUse);
      if (existingPorts.count(port_) == 0) throw MakeSerialError(kSerialInvalidPort);
    }
    open_ = open;
    received_ = 0;
    unplugged_ = false;
  }
  bool PortOpen() const override { return open_; }

  void Output(std::string_view bytes) override {
    if (!open_) throw MakeSerialError(kSerialNoOpenPort);
    if (unplugged_) throw MakeSerialError(kSerialDeviceError);
    sent += bytes;
  }
  int InBufferCount() const override { return open_ ? received_ : 0; }

  void SetReceiveHandler(std::function<void()> handler) override {
    onReceive_ = std::move(handler);
  }
  void SetErrorHandler(std::function<void(const SerialError&)> handler) override {
    onError_ = std::move(handler);
  }

  void Feed(std::string_view bytes) {
    if (!open_) return;
    received_ += static_cast<int>(bytes.size());
    if (onReceive_) onReceive_();
  }
  void Unplug() {
    if (!open_ || unplugged_) return;
    unplugged_ = true;
    if (onError_) onError_(MakeSerialError(kSerialDeviceError));
  }

  std::set<int> existingPorts{1, 3};
  std::set<int> busyPorts;
  std::string sent;

 private:
  int port_ = 1;
  bool open_ = false;
  bool unplugged_ = false;
  int received_ = 0;
  std::function<void()> onReceive_;
  std::function<void(const SerialError&)> onError_;
};

}  // namespace orvane
