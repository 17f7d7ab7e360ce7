#include "app/startup.h"

#include "app/unscramble_setting.h"
#include "fakes/program_fixture.h"
#include "scramble_setting.h"

namespace orvane {
namespace {

using Box = FakePrompts::Box;
using Texts = std::vector<std::string>;
constexpr const char* kNoStart = "Programmstart nicht möglich!";

class StartupTest : public ProgramFixture {
 protected:
  StartupTest() {
    SetUpRegistry("TXPfad", state.host.hostPath);
    state.host.registry.reset();
  }
  void SetUpRegistry(const std::string& name, const std::string& value) {
    const auto helper = newRegistry();
    BindHostRegistry(*helper);
    helper->Write("", name, value);
  }
  StartupOutcome Run(const std::string& commandLine) {
    prompts.boxes.clear();
    return RunStartup(newRegistry, instance, state, first, second, "C:\\Programme\\Brisko",
                      commandLine,
                      {[this](const std::string& text) { sent.push_back(text); },
                       [this] { ++claimed; }, [this] { ++executed; }});
  }
  void ExpectRefused(const std::string& commandLine, const Box& box) {
    SCOPED_TRACE(commandLine);
    EXPECT_EQ(Run(commandLine), StartupOutcome::kRefused);
    EXPECT_EQ(prompts.boxes.at(0), box);
    EXPECT_FALSE(state.host.registry);
    EXPECT_EQ(executed, 0);
  }

  HostHelper first{prompts}, second{prompts};
  Texts sent;
  int claimed = 0, executed = 0;
};

TEST_F(StartupTest, RefusesWithTheReason) {
  for (const char* line : {"", "TX", "tx:17", "Tx:17", " TX:17", "17", "\xff\xfe"}) {
    ExpectRefused(
        line, {PromptIcon::kExclamation, "Brisko kann nur über Talmix genutzt werden.", kNoStart});
  }
  const std::string kNoFolder = "Das Talmix Basisverzeichnis steht nicht im Zugriff.\r\r> ";
  SetUpRegistry("TXPfad", "X:\\nirgends\\");
  ExpectRefused("TX:17", {PromptIcon::kExclamation, kNoFolder + "'X:\\nirgends\\'", kNoStart});
  registry->values.clear();
  ExpectRefused("TX:17", {PromptIcon::kExclamation, kNoFolder + "''", kNoStart});
  registry->denyReads = true;
  ExpectRefused("TX:17",
                {PromptIcon::kStop, "Zugriffsfehler auf Registry", "Key-Zugriffsfehler 2"});
  EXPECT_EQ(prompts.boxes.size(), 2U);
  newRegistry = [] { return nullptr; };
  ExpectRefused("TX:17", {PromptIcon::kStop, "Die Anwendung Brisko reagiert nicht.",
                          "Brisko reagiert nicht!"});
}

TEST_F(StartupTest, SplitsTheCommandLineAtTildes) {
  for (const auto& [words, fields] :
       {std::pair{Texts{"TX:"}, Texts{""}},
        {{"TX:17"}, {"17"}},
        {{"TX:17~Dial~1|030 12", "34|Firma GmbH"}, {"17", "Dial", "1|030 12 34|Firma GmbH"}},
        {{"TX:~~", "x~"}, {"", "", " x", ""}}}) {
    EXPECT_EQ(Run(JoinCommandLine(words)), StartupOutcome::kRunning);
    EXPECT_EQ(state.host.startArgs, fields);
  }
  EXPECT_EQ(executed, 4);
  Run("TX:" + std::string(9999, '~'));
  EXPECT_EQ(state.host.startArgs.size(), 10000U);
}

TEST_F(StartupTest, ForwardsOnlyTheUserNumberToARunningInstance) {
  instance.anotherRuns = true;
  for (const char* line : {"TX:5~Dial~1|030", "TX:~Dial~1|030"}) {
    EXPECT_EQ(Run(line), StartupOutcome::kForwarded);
    EXPECT_EQ(sent, Texts{"5"});
    EXPECT_TRUE(prompts.boxes.empty());
  }
  EXPECT_EQ(executed, 0);
}

TEST_F(StartupTest, ChoosesTheContactDatabaseByTheLogin) {
  const auto scrambled = [](const std::string& text) {
    return ScrambleSetting(text, kScrambleKey, kScrambleRounds);
  };
  const std::tuple<const char*, std::string, std::string, std::string, bool> kCases[] = {
      {"nothing stored", "", "", "", false},
      {"marker", scrambled("SRV1"), scrambled("~.~"), scrambled("x"), false},
      {"plain marker", "", "~.~", "", false},
      {"server", scrambled("SRV1"), scrambled("büro"), scrambled("geheim"), true},
      {"trusted connection", scrambled("SRV1"), "", "", true}};
  for (const auto& [what, name, login, password, server] : kCases) {
    SCOPED_TRACE(what);
    state.host.sqlServerName.clear();
    SetUpRegistry("SrvName", name);
    SetUpRegistry("SrvLogin", login);
    SetUpRegistry("SrvPass", password);
    ASSERT_EQ(Run("TX:17"), StartupOutcome::kRunning);
    EXPECT_EQ(state.host.useSqlServer, server);
    EXPECT_EQ(state.host.sqlServerName, server ? "SRV1" : "");
  }
  EXPECT_EQ(state.host.resPath, state.host.hostPath + "res\\");
  EXPECT_EQ(second.LanguageResource(), "C:\\Programme\\Brisko\\zLangDE.dll");
  EXPECT_EQ(second.MessageLibrary(), "C:\\Programme\\Brisko\\Nordel17.dll");
}

}  // namespace
}  // namespace orvane
