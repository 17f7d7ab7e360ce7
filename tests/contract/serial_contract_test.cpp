#include <gtest/gtest.h>
#include <sys/resource.h>

#include <QFile>
#include <QTemporaryDir>
#include <functional>
#include <memory>
#include <string>

#include "contract/child_process.h"
#include "contract/event_wait.h"
#include "contract/pty_pair.h"
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
    Link("com1", one_);
    Link("COM3", three_);
    QFile::link(QStringLiteral("/dev/pts/none"), links_.filePath(QStringLiteral("com2")));
    control_ = New();
  }
  SerialControl& Control() override { return *control_; }
  void Feed(std::string_view bytes) override { one_.Feed(bytes); }
  std::string Sent() override { return one_.Sent(); }
  void Unplug() override { one_.Unplug(); }
  void OccupyPort3() override {
    other_ = New();
    other_->SetCommPort(3);
    other_->SetPortOpen(true);
  }
  std::unique_ptr<QtSerialControl> New() const {
    return std::make_unique<QtSerialControl>(links_.path());
  }

 private:
  void Link(const char* name, const PtyPair& pty) const {
    QFile::link(QString::fromStdString(pty.SlavePath()),
                links_.filePath(QString::fromLatin1(name)));
  }
  QTemporaryDir links_;
  PtyPair one_;
  PtyPair three_;
  std::unique_ptr<QtSerialControl> control_;
  std::unique_ptr<QtSerialControl> other_;
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

using RigFactory = std::unique_ptr<SerialRig> (*)();

class SerialContract : public testing::TestWithParam<RigFactory> {
 protected:
  SerialContract() {
    serial_.SetReceiveHandler([this] { ++received_; });
    serial_.SetErrorHandler([this](const SerialError& error) {
      ++failures_;
      EXPECT_EQ(error.Number(), kSerialDeviceError);
    });
  }
  // The error as "number: description", or "".
  static std::string ErrorOf(const std::function<void()>& call) {
    try {
      call();
    } catch (const SerialError& error) {
      return std::to_string(error.Number()) + ": " + error.Description();
    }
    return "";
  }

  // What the far end receives, once that is so many characters.
  std::string Arrived(std::size_t count) {
    std::string sent;
    RunUntil([&] { return (sent += rig_->Sent()).size() >= count; });
    return sent;
  }

  std::unique_ptr<SerialRig> rig_ = GetParam()();
  SerialControl& serial_ = rig_->Control();
  int received_ = 0;
  int failures_ = 0;
};

TEST_P(SerialContract, PortNumbers) {
  EXPECT_EQ(serial_.CommPort(), 1);
  for (const int port : {0, -1, kSerialMaxPort + 1}) {
    EXPECT_EQ(ErrorOf([&] { serial_.SetCommPort(port); }), "8002: Ungültige Anschlussnummer");
    EXPECT_EQ(serial_.CommPort(), 1);
  }
  serial_.SetPortOpen(true);
  EXPECT_EQ(ErrorOf([&] { serial_.SetCommPort(1); }), "");
  for (const int port : {3, 0}) {
    EXPECT_EQ(ErrorOf([&] { serial_.SetCommPort(port); }),
              "8000: Vorgang bei geöffnetem Anschluss ungültig");
  }
  EXPECT_EQ(serial_.CommPort(), 1);
  serial_.SetPortOpen(false);
  serial_.SetCommPort(3);
  EXPECT_EQ(serial_.CommPort(), 3);
}

TEST_P(SerialContract, SendsAndCounts) {
  serial_.SetPortOpen(true);
  serial_.SetPortOpen(true);
  serial_.Output("AT\r");
  EXPECT_EQ(Arrived(3), "AT\r");
  serial_.Output("");
  serial_.Output(std::string_view("\0\xFF\n", 3));
  EXPECT_EQ(Arrived(3), std::string("\0\xFF\n", 3));

  EXPECT_EQ(serial_.InBufferCount(), 0);
  rig_->Feed("\r\n");
  EXPECT_TRUE(RunUntil([&] { return serial_.InBufferCount() == 2; }));
  rig_->Feed("OK\r\n");
  EXPECT_TRUE(RunUntil([&] { return serial_.InBufferCount() == 6; })) << "nothing is read away";
  EXPECT_GE(received_, 2);
  EXPECT_EQ(failures_, 0);

  serial_.SetPortOpen(false);
  EXPECT_EQ(serial_.InBufferCount(), 0);
  serial_.SetPortOpen(true);
  EXPECT_EQ(serial_.InBufferCount(), 0);
}

TEST_P(SerialContract, ClosedPort) {
  EXPECT_FALSE(serial_.PortOpen());
  EXPECT_EQ(ErrorOf([&] { serial_.Output("AT\r"); }),
            "8018: Vorgang nur bei geöffnetem Anschluss gültig");
  EXPECT_EQ(ErrorOf([&] { serial_.SetPortOpen(false); }), "");
  serial_.SetPortOpen(true);
  serial_.SetPortOpen(false);
  EXPECT_FALSE(serial_.PortOpen());
  EXPECT_EQ(serial_.InBufferCount(), 0);
}

TEST_P(SerialContract, MissingAndBusyDevices) {
  serial_.SetCommPort(2);
  EXPECT_EQ(ErrorOf([&] { serial_.SetPortOpen(true); }), "8002: Ungültige Anschlussnummer");
  serial_.SetCommPort(3);
  rig_->OccupyPort3();
  EXPECT_EQ(ErrorOf([&] { serial_.SetPortOpen(true); }), "8005: Anschluss bereits geöffnet");
  EXPECT_FALSE(serial_.PortOpen());
  serial_.SetCommPort(1);
  EXPECT_EQ(ErrorOf([&] { serial_.SetPortOpen(true); }), "");
}

TEST_P(SerialContract, CableOutIsToldOnce) {
  serial_.SetPortOpen(true);
  rig_->Feed("OK");
  EXPECT_TRUE(RunUntil([&] { return serial_.InBufferCount() == 2; }));
  rig_->Unplug();
  EXPECT_TRUE(RunUntil([&] { return failures_ > 0; }));
  RunPending();
  EXPECT_EQ(failures_, 1);
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

double ProcessorSeconds() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  const auto seconds = [](const timeval& t) {
    return static_cast<double>(t.tv_sec) + 1e-6 * static_cast<double>(t.tv_usec);
  };
  return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

TEST(QtSerialControl, AnUnpluggedDeviceTakesNoProcessorTime) {
  PtyRig rig;
  rig.Control().SetPortOpen(true);
  rig.Unplug();
  RunPending();
  const double before = ProcessorSeconds();
  QElapsedTimer elapsed;
  elapsed.start();
  RunUntil([&] { return elapsed.elapsed() >= 500; });
  EXPECT_LT(ProcessorSeconds() - before, 0.25);
}

TEST(QtSerialControl, AnotherProcessKeepsTheDeviceToItself) {
  PtyRig rig;
  rig.Control().SetPortOpen(true);
  const auto openInChild = [&] {
    return ChildProcess([&] {
             try {
               rig.New()->SetPortOpen(true);
             } catch (const SerialError& error) {
               return error.Number() - 8000;
             }
             return 0;
           })
        .Wait();
  };
  EXPECT_EQ(openInChild(), kSerialPortInUse - 8000);
  rig.Control().SetPortOpen(false);
  EXPECT_EQ(openInChild(), 0);
}

TEST(QtSerialControl, ADeviceThatTakesNothingDoesNotHoldTheProgram) {
  PtyRig rig;
  rig.Control().SetPortOpen(true);
  EXPECT_THROW(rig.Control().Output(std::string(1'000'000, 'x')), SerialError);
  EXPECT_TRUE(rig.Control().PortOpen());
  std::string sent;
  const auto sawNothingNew = [&] {
    const std::string block = rig.Sent();
    sent += block;
    return block.empty();
  };
  RunUntil(sawNothingNew);
  rig.Control().Output("AT\r");
  EXPECT_TRUE(RunUntil([&] {
    sawNothingNew();
    return sent.ends_with("AT\r");
  }));
}

TEST(ComPorts, LinksComeBeforeTheMachinesDevices) {
  const QTemporaryDir links;
  const auto link = [&](const char* target, const char* name) {
    QFile::link(QString::fromLatin1(target), links.filePath(QString::fromLatin1(name)));
  };
  link("/dev/null", "COM2");
  link("/nowhere", "com3");
  const QStringList devices = InComOrder(
      {QStringLiteral("/dev/ttyUSB10"), QStringLiteral("/dev/ttyACM0"),
       QStringLiteral("/dev/ttyUSB9"), QStringLiteral("/dev/ttyS1"), QStringLiteral("/dev/ttyS0")});
  struct Case {
    int port;
    QString device;
  };
  const Case cases[] = {
      {0, {}},
      {1, QStringLiteral("/dev/ttyS0")},
      {2, links.filePath(QStringLiteral("COM2"))},
      {3, links.filePath(QStringLiteral("com3"))},
      {4, QStringLiteral("/dev/ttyUSB9")},
      {5, QStringLiteral("/dev/ttyUSB10")},
      {6, {}},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(ComPortDevice(c.port, links.path(), devices).value_or(QString()), c.device) << c.port;
  }
}

}  // namespace
}  // namespace orvane
