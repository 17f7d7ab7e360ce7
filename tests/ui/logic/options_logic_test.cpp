#include <gtest/gtest.h>

#include "app/speed_dial_file.h"
#include "platform/text/ansi.h"
#include "ui/logic/com_port_choice.h"
#include "ui/logic/driver_info.h"

namespace orvane {
namespace {

const std::string kEmptyBlock = "||||||||||||||||";

SpeedDialMemory FullMemory() {
  SpeedDialMemory memory;
  for (std::size_t i = 0; i < kSpeedDialRows; ++i) {
    const std::string row = std::to_string(i);
    memory.internalRows[i] = {"Bär & Söhne ß " + row, "21" + row};
    memory.externalRows[i] = {"Özgür, Ä. „Ü“ €" + row, "+49 (30) 1/" + row + " ext.)"};
  }
  memory.internalRows[3] = {};
  memory.externalRows[0] = {"", "0301"};
  memory.externalRows[7] = {"Ende", ""};
  return memory;
}

TEST(SpeedDialFile, KeepsEveryFieldToTheByte) {
  EXPECT_EQ(SpeedDialFileText({}), kEmptyBlock + "¿" + kEmptyBlock);
  const std::string bytes = EncodeAnsi(SpeedDialFileText(FullMemory()));
  EXPECT_TRUE(bytes.starts_with("B\xE4r & S\xF6hne \xDF 0|210|")) << bytes;
  EXPECT_TRUE(bytes.ends_with("Ende||"));
  EXPECT_EQ(ParseSpeedDialFile(DecodeAnsi(bytes)), FullMemory());
  EXPECT_EQ(ParseSpeedDialFile(DecodeAnsi(bytes + '\xBF')), FullMemory());
}

TEST(SpeedDialFile, MarksFieldsThatAreMissing) {
  const SpeedDialRow missing{"<PipeEnd>", "<PipeEnd>"};
  EXPECT_EQ(ParseSpeedDialFile(""), SpeedDialMemory());
  const SpeedDialMemory twoRows = ParseSpeedDialFile("A|111|B|222|¿X|9|¿");
  EXPECT_EQ(twoRows.internalRows[0], (SpeedDialRow{"A", "111"}));
  EXPECT_EQ(twoRows.internalRows[1], (SpeedDialRow{"B", "222"}));
  EXPECT_EQ(twoRows.internalRows[2], (SpeedDialRow{"", "<PipeEnd>"}));
  EXPECT_EQ(twoRows.internalRows[7], missing);
  EXPECT_EQ(twoRows.externalRows[0], (SpeedDialRow{"X", "9"}));
  EXPECT_EQ(ParseSpeedDialFile("A|1|").externalRows[0], missing);
}

TEST(SpeedDialFile, ShiftsBehindASeparatorInAField) {
  SpeedDialMemory memory;
  memory.internalRows[0] = {"A|B", "1"};
  const SpeedDialMemory shifted = ParseSpeedDialFile(SpeedDialFileText(memory));
  EXPECT_EQ(shifted.internalRows[0], (SpeedDialRow{"A", "B"}));
  EXPECT_EQ(shifted.internalRows[1], (SpeedDialRow{"1", ""}));
}

TEST(DriverInfo, NamesEachCapabilityAboveItsValue) {
  LineInfo info;
  info.bearerModes = 1;
  info.busyModes = 2;
  info.callFeatures = 3;
  info.callInfoStates = 4;
  info.callStates = 5;
  info.dialToneModes = 6;
  info.disconnectModes = 7;
  info.mediaModes = 8;
  info.parkModes = 9;
  info.addressModes = 0x80000000U;
  info.addresses = {"30", ""};
  std::string text;
  for (const std::string& line : CapabilityLines("Büro", info)) text += line + "\n";
  EXPECT_EQ(text,
            "Treiber-Funktionen zu Büro\n\nBearermodes: \n1\nBusymodes: \n2\nCallfeatures: \n3\n"
            "Callinfostates: \n4\nCallstates: \n5\nDialtonemodes: \n6\nDisconnectmodes: \n7\n"
            "Mediamodes: \n8\nParkmodes: \n9\nAddressmodes: \n2147483648\nAnzahl Adressen: 2\n"
            "Adresse 0:30\nAdresse 1:\n");
}

TEST(ComPorts, AreChoosableUpToEight) {
  const struct {
    std::vector<std::string> names;
    std::set<int> ports;
  } kCases[] = {
      {{}, {}},
      {{"COM3"}, {3}},
      {{"COM12", "COM8", "COM9", "COM1"}, {1, 8}},
      {{"", "CO", "COM", "COM0", "COM-1", "CNCA0", "COM99999999999999999999"}, {}},
      {{"com2", "LPT4"}, {2, 4}},
  };
  for (const auto& [names, ports] : kCases) {
    SCOPED_TRACE(testing::PrintToString(names));
    EXPECT_EQ(ChoosableComPorts(names), ports);
  }
}

}  // namespace
}  // namespace orvane
