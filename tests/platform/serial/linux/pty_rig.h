#pragma once

#include <QFile>
#include <QTemporaryDir>

#include "contract/serial_rig.h"
#include "platform/serial/linux/pty_pair.h"
#include "platform/serial/linux/qt_serial_control.h"

namespace orvane {

// The machine's own serial ports, played by pseudo terminals.
class PtyRig : public SerialRig {
 public:
  PtyRig() {
    for (const auto& [name, device] : {std::pair{"com1", one_.SlavePath()},
                                       {"com2", "/dev/pts/none"},
                                       {"COM3", three_.SlavePath()}}) {
      QFile::link(QString::fromStdString(device), links_.filePath(QString::fromLatin1(name)));
    }
  }
  SerialControl& Control() override { return control_; }
  void Feed(std::string_view bytes) override { one_.Feed(bytes); }
  std::string Sent() override { return one_.Sent(); }
  void Unplug() override { one_.Unplug(); }
  bool OccupyShared() override {
    other_.SetCommPort(Ports().shared);
    other_.SetPortOpen(true);
    return true;
  }

 private:
  QTemporaryDir links_;
  PtyPair one_, three_;
  QtSerialControl control_{links_.path()}, other_{links_.path()};
};

}  // namespace orvane
