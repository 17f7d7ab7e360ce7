#pragma once

#include <QSerialPort>

#include "platform/serial/linux/com_ports.h"
#include "platform/serial_control.h"

namespace orvane {

// A serial device of this machine. Works on pseudo terminals too.
class QtSerialControl : public SerialControl {
 public:
  // `linkFolder` holds the user's links from COM numbers to devices.
  explicit QtSerialControl(QString linkFolder = ComLinkFolder());
  ~QtSerialControl() override;
  QtSerialControl(const QtSerialControl&) = delete;
  QtSerialControl& operator=(const QtSerialControl&) = delete;

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
  void LockDevice();
  void Receive();
  void Fail();
  void DrainBeforeClose();

  QString linkFolder_;
  int port_ = 1;
  bool open_ = false;
  // The device failed while open; the port stays open for its user, but without the device.
  bool failed_ = false;
  // Counts the openings, so that what was announced in an earlier one is dropped.
  unsigned session_ = 0;
  int received_ = 0;
  QSerialPort device_;
  std::function<void()> onReceive_;
  std::function<void(const SerialError&)> onError_;
  // Dies first, and with it everything that is queued for this object.
  QObject context_;
};

}  // namespace orvane
