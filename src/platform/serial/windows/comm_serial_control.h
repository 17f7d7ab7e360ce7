#pragma once

#include <QObject>
#include <QWinEventNotifier>
#include <memory>

#include "platform/serial_control.h"
#include "platform/system/windows/system_handle.h"

namespace orvane {

class CommDevice;

// A serial port of this machine through the system's communications calls. Made when the
// application object exists.
class CommSerialControl : public SerialControl {
 public:
  CommSerialControl();
  ~CommSerialControl() override;
  CommSerialControl(const CommSerialControl&) = delete;
  CommSerialControl& operator=(const CommSerialControl&) = delete;

  void SetCommPort(int port) override;
  int CommPort() const override { return port_; }
  void SetPortOpen(bool open) override;
  bool PortOpen() const override { return open_; }
  void Output(std::string_view bytes) override;
  int InBufferCount() const override { return open_ ? received_ : 0; }
  void SetReceiveHandler(std::function<void()> handler) override;
  void SetErrorHandler(std::function<void(const SerialError&)> handler) override;

 private:
  void Open();
  void Close();
  void StartRead();
  void ReadEnded();
  void Fail();

  int port_ = 1;
  bool open_ = false;
  // Counts the openings, so that what was announced in an earlier one is dropped.
  unsigned session_ = 0;
  int received_ = 0;
  SystemHandle readEvent_;
  // None while the port is closed, and none after it has failed: then the port stays open for its
  // user, but without the device.
  std::unique_ptr<CommDevice> device_;
  std::function<void()> onReceive_;
  std::function<void(const SerialError&)> onError_;
  // These die first, and with them everything that is queued for this object.
  QWinEventNotifier readNotifier_;
  QObject context_;
};

}  // namespace orvane
