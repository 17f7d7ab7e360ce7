#include "modem_simulator.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>
#include <string>
#include <vector>

#include "contract/event_wait.h"
#include "platform/linux/qt_serial_control.h"

namespace orvane {
namespace {

using std::chrono::milliseconds;

class ModemSimulatorTest : public testing::Test {
 protected:
  ModemSimulatorTest() {
    QFile::link(QString::fromStdString(modem_.SlavePath()),
                links_.filePath(QStringLiteral("com1")));
    serial_.SetPortOpen(true);
  }
  // Lets the modem take `command`, and returns how many characters it has answered by then.
  int CountAfter(std::string_view command) {
    const auto before = modem_.Commands().size();
    serial_.Output(command);
    EXPECT_TRUE(RunUntil([&] { return modem_.Commands().size() > before; }));
    RunPending();
    return serial_.InBufferCount();
  }
  bool Arrives(int count) {
    return RunUntil([&] { return serial_.InBufferCount() >= count; });
  }

  QTemporaryDir links_;
  ModemSimulator modem_;
  QtSerialControl serial_{links_.path()};
};

TEST_F(ModemSimulatorTest, AnswersACall) {
  modem_.SetConnectDelay(milliseconds(0));
  serial_.Output("A");
  RunPending();
  serial_.Output("T\r");
  EXPECT_TRUE(Arrives(6));
  serial_.Output("ATDT 0301234\r");
  EXPECT_TRUE(Arrives(6 + 11));
  serial_.Output("ATH0\r");
  EXPECT_TRUE(Arrives(6 + 11 + 6));
  EXPECT_EQ(modem_.Commands(), (std::vector<std::string>{"AT", "ATDT 0301234", "ATH0"}));
}

TEST_F(ModemSimulatorTest, HangingUpEndsTheConnecting) {
  modem_.SetConnectDelay(milliseconds(50));
  serial_.Output("ATDT 1\rATH0\r");
  EXPECT_TRUE(Arrives(6));
  QElapsedTimer elapsed;
  elapsed.start();
  RunUntil([&] { return elapsed.elapsed() > 100; });
  EXPECT_EQ(serial_.InBufferCount(), 6);
}

TEST_F(ModemSimulatorTest, MayBeSilent) {
  modem_.SetAnswering(false);
  EXPECT_EQ(CountAfter("AT\r"), 0);
  EXPECT_EQ(CountAfter("ATDT 1\r"), 0);
}

TEST_F(ModemSimulatorTest, MayBeUnpluggedByItsListener) {
  modem_.SetCommandHandler([this](const std::string&) { modem_.Unplug(); });
  bool failed = false;
  serial_.SetErrorHandler([&](const SerialError&) { failed = true; });
  serial_.Output("AT\rAT\r");
  EXPECT_TRUE(RunUntil([&] { return failed; }));
  EXPECT_EQ(modem_.Commands().size(), 1U);
}

}  // namespace
}  // namespace orvane
