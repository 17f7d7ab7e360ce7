#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include "contract/event_wait.h"
#include "contract/pty_pair.h"
#include "fakes/fake_serial.h"
#include "platform/linux/qt_serial_control.h"

namespace orvane {
namespace {

// A control whose ports 1 and 3 exist, 2 does not, and the far end of port 1: the fake's.
class FakeRig {
 public:
  virtual ~FakeRig() = default;
  virtual SerialControl& Control() { return serial_; }
  virtual void Feed(std::string_view bytes) { serial_.Feed(bytes); }
  // What has arrived at the far end since the last call.
  virtual std::string Sent() { return std::exchange(serial_.sent, {}); }
  virtual void Unplug() { serial_.Unplug(); }
  // Another program takes port 3.
  virtual void OccupyPort3() { serial_.busyPorts.insert(3); }

 private:
  FakeSerial serial_;
};

// The same with the system's devices.
class PtyRig : public FakeRig {
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
  void OccupyPort3() override {
    other_.SetCommPort(3);
    other_.SetPortOpen(true);
  }

 private:
  QTemporaryDir links_;
  PtyPair one_, three_;
  QtSerialControl control_{links_.path()}, other_{links_.path()};
};

// The error as "number: description", or "".
std::string ErrorOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const SerialError& error) {
    return std::to_string(error.Number()) + ": " + error.Description();
  }
  return "";
}

class SerialContract : public testing::TestWithParam<std::unique_ptr<FakeRig> (*)()> {
 protected:
  SerialContract() {
    serial_.SetReceiveHandler([this] { ++received_; });
    serial_.SetErrorHandler([this](const SerialError& error) {
      ++failures_;
      EXPECT_EQ(error.Number(), kSerialDeviceError);
    });
  }
  std::string SetPort(int port) {
    return ErrorOf([&] { serial_.SetCommPort(port); });
  }
  std::string SetOpen(bool open) {
    return ErrorOf([&] { serial_.SetPortOpen(open); });
  }
  // What the far end receives, once that is so many characters.
  std::string Arrived(std::size_t count) {
    std::string sent;
    RunUntil([&] { return (sent += rig_->Sent()).size() >= count; });
    return sent;
  }
  bool Waiting(int count) {
    return RunUntil([&] { return serial_.InBufferCount() == count; });
  }

  std::unique_ptr<FakeRig> rig_ = GetParam()();
  SerialControl& serial_ = rig_->Control();
  int received_ = 0;
  int failures_ = 0;
};

TEST_P(SerialContract, PortNumbers) {
  for (const int port : {0, -1, kSerialMaxPort + 1}) {
    EXPECT_EQ(SetPort(port), "8002: Ungültige Anschlussnummer");
  }
  EXPECT_EQ(serial_.CommPort(), 1);
  serial_.SetPortOpen(true);
  EXPECT_EQ(SetPort(1), "");
  for (const int port : {3, 0}) {
    EXPECT_EQ(SetPort(port), "8000: Vorgang bei geöffnetem Anschluss ungültig");
  }
  EXPECT_EQ(serial_.CommPort(), 1);
  serial_.SetPortOpen(false);
  serial_.SetCommPort(3);
  EXPECT_EQ(serial_.CommPort(), 3);
}

TEST_P(SerialContract, SendsAndCounts) {
  EXPECT_FALSE(serial_.PortOpen());
  EXPECT_EQ(SetOpen(false), "");
  EXPECT_EQ(ErrorOf([&] { serial_.Output("AT\r"); }),
            "8018: Vorgang nur bei geöffnetem Anschluss gültig");
  for (int time = 0; time < 2; ++time) EXPECT_EQ(SetOpen(true), "");
  serial_.Output("AT\r");
  serial_.Output("");
  serial_.Output(std::string_view("\0\xFF\n", 3));
  EXPECT_EQ(Arrived(6), std::string("AT\r\0\xFF\n", 6));

  EXPECT_EQ(serial_.InBufferCount(), 0);
  rig_->Feed("\r\n");
  EXPECT_TRUE(Waiting(2));
  rig_->Feed("OK\r\n");
  EXPECT_TRUE(Waiting(6)) << "nothing is read away";
  EXPECT_GE(received_, 2);
  EXPECT_EQ(failures_, 0);
  for (const bool open : {false, true}) {
    serial_.SetPortOpen(open);
    EXPECT_EQ(serial_.InBufferCount(), 0);
  }
}

TEST_P(SerialContract, MissingAndBusyDevices) {
  serial_.SetCommPort(2);
  EXPECT_EQ(SetOpen(true), "8002: Ungültige Anschlussnummer");
  serial_.SetCommPort(3);
  rig_->OccupyPort3();
  EXPECT_EQ(SetOpen(true), "8005: Anschluss bereits geöffnet");
  EXPECT_FALSE(serial_.PortOpen());
  serial_.SetCommPort(1);
  EXPECT_EQ(SetOpen(true), "");
}

TEST_P(SerialContract, CableOutIsToldOnce) {
  serial_.SetPortOpen(true);
  rig_->Feed("OK");
  EXPECT_TRUE(Waiting(2));
  rig_->Unplug();
  EXPECT_TRUE(RunUntil([&] { return failures_ > 0; }));
  EXPECT_TRUE(serial_.PortOpen());
  EXPECT_EQ(ErrorOf([&] { serial_.Output("ATH0\r"); }),
            "8020: Fehler beim Lesen des Kommunikationsgeräts");
  RunPending();
  EXPECT_EQ(failures_, 1);
  serial_.SetPortOpen(false);
  EXPECT_FALSE(serial_.PortOpen());
}

TEST_P(SerialContract, AHandlerMayClosePortAndGoAway) {
  serial_.SetReceiveHandler([this] {
    serial_.SetPortOpen(false);
    serial_.SetReceiveHandler({});
  });
  serial_.SetPortOpen(true);
  rig_->Feed("OK");
  EXPECT_TRUE(RunUntil([&] { return !serial_.PortOpen(); }));
  serial_.SetErrorHandler([this](const SerialError&) { serial_.SetPortOpen(false); });
  serial_.SetPortOpen(true);
  rig_->Unplug();
  EXPECT_TRUE(RunUntil([&] { return !serial_.PortOpen(); }));
}

template <typename Rig>
std::unique_ptr<FakeRig> Make() {
  return std::make_unique<Rig>();
}
INSTANTIATE_TEST_SUITE_P(Pty, SerialContract, testing::Values(&Make<PtyRig>));
INSTANTIATE_TEST_SUITE_P(Fake, SerialContract, testing::Values(&Make<FakeRig>));

TEST(QtSerialControl, ADeviceThatTakesNothingDoesNotHoldTheProgram) {
  PtyRig rig;
  rig.Control().SetPortOpen(true);
  EXPECT_THROW(rig.Control().Output(std::string(1'000'000, 'x')), SerialError);
  EXPECT_TRUE(rig.Control().PortOpen());
  RunUntil([&] { return rig.Sent().empty(); });
  rig.Control().Output("AT\r");
  std::string sent;
  EXPECT_TRUE(RunUntil([&] { return (sent += rig.Sent()).ends_with("AT\r"); }));
}

TEST(ComPorts, LinksComeBeforeTheMachinesDevices) {
  const QTemporaryDir links;
  QFile::link(QStringLiteral("/dev/null"), links.filePath(QStringLiteral("COM2")));
  QFile::link(QStringLiteral("/nowhere"), links.filePath(QStringLiteral("com3")));
  const QStringList devices = InComOrder(
      QStringLiteral("/dev/ttyUSB10 /dev/ttyACM0 /dev/ttyUSB9 /dev/ttyS1 /dev/ttyS0").split(u' '));
  const std::string folder = links.path().toStdString();
  const std::string kDevices[] = {
      "", "/dev/ttyS0", folder + "/COM2", folder + "/com3", "/dev/ttyUSB9", "/dev/ttyUSB10", ""};
  for (int port = 0; port <= 6; ++port) {
    const auto device = ComPortDevice(port, links.path(), [&] { return devices; });
    EXPECT_EQ(device.value_or(QString()).toStdString(), kDevices[port]);
  }
}

}  // namespace
}  // namespace orvane
