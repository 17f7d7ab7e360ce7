#include <gtest/gtest.h>

#include "contract/event_wait.h"
#include "contract/system_implementations.h"

namespace orvane {
namespace {

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
  void SetUp() override {
    if (!rig_) GTEST_SKIP() << "no serial cable for tests on this machine";
    ports_ = rig_->Ports();
    serial_ = &rig_->Control();
    serial_->SetCommPort(ports_.wired);
    serial_->SetReceiveHandler([this] { ++received_; });
    serial_->SetErrorHandler([this](const SerialError& error) {
      ++failures_;
      EXPECT_EQ(error.Number(), kSerialDeviceError);
    });
  }
  std::string SetPort(int port) {
    return ErrorOf([&] { serial_->SetCommPort(port); });
  }
  std::string SetOpen(bool open) {
    return ErrorOf([&] { serial_->SetPortOpen(open); });
  }
  // What the far end receives, once that is so many characters.
  std::string Arrived(std::size_t count) {
    std::string sent;
    RunUntil([&] { return (sent += rig_->Sent()).size() >= count; });
    return sent;
  }
  bool Waiting(int count) {
    return RunUntil([&] { return serial_->InBufferCount() == count; });
  }

  std::unique_ptr<SerialRig> rig_ = GetParam()();
  SerialPorts ports_;
  SerialControl* serial_ = nullptr;
  int received_ = 0;
  int failures_ = 0;
};

TEST_P(SerialContract, PortNumbers) {
  for (const int port : {0, -1, kSerialMaxPort + 1}) {
    EXPECT_EQ(SetPort(port), "8002: Ungültige Anschlussnummer");
  }
  EXPECT_EQ(serial_->CommPort(), ports_.wired);
  serial_->SetPortOpen(true);
  EXPECT_EQ(SetPort(ports_.wired), "");
  for (const int port : {ports_.shared, 0}) {
    EXPECT_EQ(SetPort(port), "8000: Vorgang bei geöffnetem Anschluss ungültig");
  }
  EXPECT_EQ(serial_->CommPort(), ports_.wired);
  serial_->SetPortOpen(false);
  serial_->SetCommPort(ports_.shared);
  EXPECT_EQ(serial_->CommPort(), ports_.shared);
}

TEST_P(SerialContract, SendsAndCounts) {
  EXPECT_FALSE(serial_->PortOpen());
  EXPECT_EQ(SetOpen(false), "");
  EXPECT_EQ(ErrorOf([&] { serial_->Output("AT\r"); }),
            "8018: Vorgang nur bei geöffnetem Anschluss gültig");
  for (int time = 0; time < 2; ++time) EXPECT_EQ(SetOpen(true), "");
  serial_->Output("AT\r");
  serial_->Output("");
  serial_->Output(std::string_view("\0\xFF\n", 3));
  EXPECT_EQ(Arrived(6), std::string("AT\r\0\xFF\n", 6));

  EXPECT_EQ(serial_->InBufferCount(), 0);
  rig_->Feed("\r\n");
  EXPECT_TRUE(Waiting(2));
  rig_->Feed("OK\r\n");
  EXPECT_TRUE(Waiting(6)) << "nothing is read away";
  EXPECT_GE(received_, 2);
  EXPECT_EQ(failures_, 0);
  for (const bool open : {false, true}) {
    serial_->SetPortOpen(open);
    EXPECT_EQ(serial_->InBufferCount(), 0);
  }
}

TEST_P(SerialContract, MissingAndBusyDevices) {
  serial_->SetCommPort(ports_.missing);
  EXPECT_EQ(SetOpen(true), "8002: Ungültige Anschlussnummer");
  serial_->SetCommPort(ports_.shared);
  if (rig_->OccupyShared()) {
    EXPECT_EQ(SetOpen(true), "8005: Anschluss bereits geöffnet");
  }
  serial_->SetPortOpen(false);
  serial_->SetCommPort(ports_.wired);
  EXPECT_EQ(SetOpen(true), "");
}

TEST_P(SerialContract, CableOutIsToldOnce) {
  serial_->SetPortOpen(true);
  rig_->Feed("OK");
  EXPECT_TRUE(Waiting(2));
  rig_->Unplug();
  EXPECT_TRUE(RunUntil([&] { return failures_ > 0; }));
  EXPECT_TRUE(serial_->PortOpen());
  EXPECT_EQ(ErrorOf([&] { serial_->Output("ATH0\r"); }),
            "8020: Fehler beim Lesen des Kommunikationsgeräts");
  RunPending();
  EXPECT_EQ(failures_, 1);
  serial_->SetPortOpen(false);
  EXPECT_FALSE(serial_->PortOpen());
}

TEST_P(SerialContract, AHandlerMayClosePortAndGoAway) {
  serial_->SetReceiveHandler([this] {
    serial_->SetPortOpen(false);
    serial_->SetReceiveHandler({});
  });
  serial_->SetPortOpen(true);
  rig_->Feed("OK");
  EXPECT_TRUE(RunUntil([&] { return !serial_->PortOpen(); }));
  serial_->SetErrorHandler([this](const SerialError&) { serial_->SetPortOpen(false); });
  serial_->SetPortOpen(true);
  rig_->Unplug();
  EXPECT_TRUE(RunUntil([&] { return !serial_->PortOpen(); }));
}

std::unique_ptr<SerialRig> MakeFakeSerialRig() {
  return std::make_unique<SerialRig>();
}
INSTANTIATE_TEST_SUITE_P(System, SerialContract, testing::Values(&MakeSystemSerialRig));
INSTANTIATE_TEST_SUITE_P(Fake, SerialContract, testing::Values(&MakeFakeSerialRig));

}  // namespace
}  // namespace orvane
