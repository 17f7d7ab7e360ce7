#include <gtest/gtest.h>

#include "contract/event_wait.h"
#include "platform/serial/linux/pty_rig.h"

namespace orvane {
namespace {

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
