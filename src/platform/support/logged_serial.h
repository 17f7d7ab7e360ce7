#pragma once

#include "platform/serial_control.h"
#include "platform/support_log.h"

namespace orvane {

// A serial port whose traffic and failures the log hears of.
class LoggedSerial : public SerialControl {
 public:
  LoggedSerial(SerialControl& port, SupportLog& log) : port_(port), log_(log) {}

  void SetCommPort(int port) override;
  int CommPort() const override { return port_.CommPort(); }
  void SetPortOpen(bool open) override;
  bool PortOpen() const override { return port_.PortOpen(); }
  void Output(std::string_view bytes) override;
  int InBufferCount() const override { return port_.InBufferCount(); }
  void SetReceiveHandler(std::function<void()> handler) override;
  void SetErrorHandler(std::function<void(const SerialError&)> handler) override;

 private:
  void Tell(std::string_view what, const std::function<void()>& step);

  SerialControl& port_;
  SupportLog& log_;
};

}  // namespace orvane
