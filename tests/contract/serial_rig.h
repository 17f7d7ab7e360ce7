#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "fakes/fake_serial.h"

namespace orvane {

// Numbers of ports, by what is there.
struct SerialPorts {
  int wired = 1;
  int missing = 2;
  int shared = 3;
};

// A control with the far end of its wired port, and another program that wants the shared one: the
// fake's.
class SerialRig {
 public:
  virtual ~SerialRig() = default;
  virtual SerialPorts Ports() const { return {}; }
  virtual SerialControl& Control() { return serial_; }
  virtual void Feed(std::string_view bytes) { serial_.Feed(bytes); }
  // What has arrived at the far end since the last call.
  virtual std::string Sent() { return std::exchange(serial_.sent, {}); }
  virtual void Unplug() { serial_.Unplug(); }
  // The other program takes the shared port. False where the machine lets two programs have it.
  virtual bool OccupyShared() {
    serial_.busyPorts.insert(Ports().shared);
    return true;
  }

 private:
  FakeSerial serial_;
};

}  // namespace orvane
