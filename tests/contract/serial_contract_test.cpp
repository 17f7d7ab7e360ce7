#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>
#include <ctime>

#include "contract/event_wait.h"
#include "contract/pty_pair.h"
#include "fakes/child_process.h"
#include "fakes/fake_serial.h"
#include "platform/linux/qt_serial_control.h"

namespace orvane {
namespace {

// A control whose ports 1 and 3 exist, 2 does not, and the far end of port 1.
class SerialRig {
 public:
  virtual ~SerialRig() = default;
  virtual SerialControl& Control() = 0;
  virtual void Feed(std::string_view bytes) = 0;
  // What has arrived at the far end since the last call.
  virtual std::string Sent() = 0;
  virtual void Unplug() = 0;
  // Another program takes port 3.
  virtual void OccupyPort3() = 0;
};

class PtyRig : public SerialRig {
 public:
  PtyRig() {
    Link("com1", one_.SlavePath());
    Link("com2", "/dev/pts/none");
    Link("COM3", three_.SlavePath());
  }
  SerialControl& Control() override { return control_; }
  void Feed(std::string_view bytes) override { one_.Feed(bytes); }
  std::string Sent() override { return one_.Sent(); }
  void Unplug() override { one_.Unplug(); }
  void OccupyPort3() override {
    other_.SetCommPort(3);
    other_.SetPortOpen(true);
  }
  SerialControl& Other() { return other_; }

 private:
  void Link(const char* name, const std::string& device) const {
    QFile::link(QString::fromStdString(device), links_.filePath(QString::fromLatin1(name)));
  }
  QTemporaryDir links_;
  PtyPair one_, three_;
  QtSerialControl control_{links_.path()}, other_{links_.path()};
};

class FakeRig : public SerialRig {
 public:
  SerialControl& Control() override { return serial_; }
  void Feed(std::string_view bytes) override { serial_.Feed(bytes); }
  std::string Sent() override { return std::exchange(serial_.sent, {}); }
  void Unplug() override { serial_.Unplug(); }
  void OccupyPort3() override { serial_.busyPorts.insert(3); }

 private:
  FakeSerial serial_;
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

class SerialContract : public testing::TestWithParam<std::unique_ptr<SerialRig> (*)()> {
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

  std::unique_ptr<SerialRig> rig_ = GetParam()();
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
std::unique_ptr<SerialRig> Make() {
  return std::make_unique<Rig>();
}
INSTANTIATE_TEST_SUITE_P(Pty, SerialContract, testing::Values(&Make<PtyRig>));
INSTANTIATE_TEST_SUITE_P(Fake, SerialContract, testing::Values(&Make<FakeRig>));

TEST(QtSerialControl, AnUnpluggedDeviceTakesNoProcessorTime) {
  PtyRig rig;
  rig.Control().SetPortOpen(true);
  rig.Unplug();
  RunPending();
  const std::clock_t before = std::clock();
  QElapsedTimer elapsed;
  elapsed.start();
  RunUntil([&] { return elapsed.elapsed() >= 500; });
  EXPECT_LT(std::clock() - before, CLOCKS_PER_SEC / 4);
}

TEST(QtSerialControl, AnotherProcessKeepsTheDeviceToItself) {
  PtyRig rig;
  const auto openInChild = [&] {
    return ChildProcess([&](const ChildProcess::Say& say) {
             say(ErrorOf([&] { rig.Other().SetPortOpen(true); }));
             return 0;
           })
        .Line();
  };
  rig.Control().SetPortOpen(true);
  EXPECT_EQ(openInChild(), "8005: Anschluss bereits geöffnet");
  rig.Control().SetPortOpen(false);
  EXPECT_EQ(openInChild(), "");
}

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
  const QString two = links.filePath(QStringLiteral("COM2"));
  const QString three = links.filePath(QStringLiteral("com3"));
  QFile::link(QStringLiteral("/dev/null"), two);
  QFile::link(QStringLiteral("/nowhere"), three);
  QStringList devices;
  for (const char* name : {"USB10", "ACM0", "USB9", "S1", "S0"}) {
    devices << QStringLiteral("/dev/tty") + QString::fromLatin1(name);
  }
  const QStringList ordered = InComOrder(devices);
  const QString kDevices[] = {
      {},    QStringLiteral("/dev/ttyS0"),   two,
      three, QStringLiteral("/dev/ttyUSB9"), QStringLiteral("/dev/ttyUSB10"),
      {}};
  for (int port = 0; port <= 6; ++port) {
    EXPECT_EQ(ComPortDevice(port, links.path(), [&] { return ordered; }).value_or(QString()),
              kDevices[port]);
  }
}

}  // namespace
}  // namespace orvane
