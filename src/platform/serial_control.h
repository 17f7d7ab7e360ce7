#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

#include "platform/errors.h"

namespace orvane {

// Error numbers of the serial control.
inline constexpr std::int32_t kSerialInvalidOpenPort = 8000;  // the port number is set while open
inline constexpr std::int32_t kSerialInvalidPort = 8002;      // no such port or device
inline constexpr std::int32_t kSerialPortInUse = 8005;        // another program holds the device
inline constexpr std::int32_t kSerialNotOpen = 8012;          // the device could not be opened
inline constexpr std::int32_t kSerialNoOpenPort = 8018;       // the operation needs an open port
inline constexpr std::int32_t kSerialDeviceError = 8020;  // reading or writing failed: cable out

inline constexpr int kSerialMaxPort = 16;

// One serial port: 9600 baud, 8 data bits, no parity, one stop bit, no handshaking. Received
// characters are counted and kept until the port is closed. All errors are SerialError.
class SerialControl {
 public:
  virtual ~SerialControl() = default;

  // 1 to kSerialMaxPort. Setting the number it already has is never an error; another number while
  // the port is open is kSerialInvalidOpenPort, a number out of range kSerialInvalidPort, and both
  // leave it unchanged.
  virtual void SetCommPort(int port) = 0;
  virtual int CommPort() const = 0;

  // True opens (nothing happens when open), false closes (nothing happens when closed). Errors on
  // opening: kSerialInvalidPort, kSerialPortInUse, kSerialNotOpen.
  virtual void SetPortOpen(bool open) = 0;
  virtual bool PortOpen() const = 0;

  // Hands the bytes to the device before it returns. Errors: kSerialNoOpenPort, kSerialDeviceError.
  virtual void Output(std::string_view bytes) = 0;

  // Received, unread characters; 0 when closed.
  virtual int InBufferCount() const = 0;

  // Called on the event loop each time characters have arrived. Empty function: nobody listens.
  virtual void SetReceiveHandler(std::function<void()> handler) = 0;
  // Called once on the event loop when an open device fails by itself (cable out, adapter gone),
  // with kSerialDeviceError. PortOpen stays true until it is set false.
  virtual void SetErrorHandler(std::function<void(const SerialError&)> handler) = 0;
};

}  // namespace orvane
