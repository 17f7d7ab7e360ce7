#include <gtest/gtest.h>

#include "app/file_text.h"
#include "fakes/program_fixture.h"
#include "platform/text/ansi.h"
#include "ui/logic/option_choices.h"

namespace orvane {
namespace {

class ApplyOptionsTest : public ProgramFixture {
 protected:
  ApplyOptionsTest() {
    choices.testNumber = "030 1";
    choices.testTarget = kTestExternal;
    choices.dialMethod = kDialMethodTapi;
    choices.outsideLineInt = " 9 ";
    choices.outsideLineExt = "0,";
    choices.comPort = 3;
    choices.lineName = "Büro";
    context.userPath = state.host.userPath;
    context.speedDial = SpeedDialMemory();
    context.speedDial->internalRows[0] = {"Jäger", "1"};
    context.reloadSettings = [this] { ++reloads; };
    tray.Hook(
        1, "Talmix_Tray18 Demo",
        [this](const CopyData& data, const auto& handled) {
          notified.push_back(data.bytes.substr(0, data.bytes.find('\0')));
          handled();
        },
        [] {});
  }
  void Apply() { ApplyOptions(channel, state, choices, context); }
  std::string SpeedDialBytes() { return ReadWholeFile(state.host.userPath + "res\\Kurzwahl.dat"); }

  OptionChoices choices;
  ApplyContext context;
  FakeChannel tray{desktop};
  std::vector<std::string> notified;
  int reloads = 0;
};

TEST_F(ApplyOptionsTest, WritesEverythingAndTellsTheHostEachTime) {
  Apply();
  const std::pair<const char*, const char*> kValues[] = {
      {"TestRufNr", "030 1"}, {"TestRufNrIE", "1"}, {"CTI", "2"},        {"AmtInt", " 9 "},
      {"AmtExt", "0,"},       {"COMPort", "3"},     {"TapiBez", "Büro"}, {"TapiMon", ""}};
  for (const auto& [name, value] : kValues) {
    SCOPED_TRACE(name);
    EXPECT_EQ(Registry(name), value);
  }
  EXPECT_EQ(SpeedDialBytes(), EncodeAnsi(SpeedDialFileText(*context.speedDial)));
  Apply();
  choices.callMonitor = true;
  Apply();
  EXPECT_EQ(Registry("TapiMon"), "1");
  EXPECT_EQ(reloads, 3);
  EXPECT_EQ(notified, (std::vector<std::string>{"TX:17~TAPI_ReInit~|", "TX:17~TAPI_ReInit~|",
                                                EncodeAnsi("TX:17~TAPI_ReInit~Büro")}));
  OptionChoices read = CurrentChoices(state, prompts);
  EXPECT_EQ(read.testNumber, "030 1");
  EXPECT_EQ(read.testTarget, kTestExternal);
  EXPECT_TRUE(read.callMonitor);
}

TEST_F(ApplyOptionsTest, LeavesNothingHalfWritten) {
  const std::string before = "Alt|1|¿|";
  WriteFile(UserFile("Kurzwahl.dat"), before);
  SetRegistry("CTI", "1");
  SetRegistry("AmtExt", "7");
  SetRegistry("TestRufNrIE", "0");
  const auto values = registry->values;
  for (const char* name : {"TestRufNr", "AmtExt", "TapiBez"}) {
    SCOPED_TRACE(name);
    registry->deniedName = name;
    EXPECT_THROW(Apply(), RegistryError);
    EXPECT_EQ(registry->values, values);
    EXPECT_EQ(SpeedDialBytes(), before);
  }
  registry->deniedName.clear();
  std::filesystem::remove(UserFile("Kurzwahl.dat"));
  std::filesystem::create_directory(UserFile("Kurzwahl.dat"));
  EXPECT_THROW(Apply(), PlatformError);
  EXPECT_EQ(registry->values, values);
  EXPECT_EQ(reloads, 0);
  EXPECT_TRUE(notified.empty());
  // Nor does a file stay behind that was to become the new one.
  std::filesystem::remove(UserFile("Kurzwahl.dat"));
  EXPECT_TRUE(std::filesystem::is_empty(UserFile("")));
}

TEST_F(ApplyOptionsTest, TellsTheHostEvenWhenTheMonitorCannotBeWritten) {
  registry->deniedName = "TapiMon";
  choices.callMonitor = true;
  EXPECT_THROW(Apply(), RegistryError);
  EXPECT_EQ(Registry("TapiBez"), "Büro");
  EXPECT_EQ(notified, (std::vector<std::string>{EncodeAnsi("TX:17~TAPI_ReInit~Büro")}));
}

}  // namespace
}  // namespace orvane
