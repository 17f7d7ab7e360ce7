#include "app/startup.h"

#include <gtest/gtest.h>

#include "app/unscramble_setting.h"
#include "fakes/program_fixture.h"
#include "scramble_setting.h"

namespace orvane {
namespace {

std::string Scrambled(const std::string& text) {
  return ScrambleSetting(text, kScrambleKey, kScrambleRounds);
}

class StartupTest : public ProgramFixture {
 protected:
  StartupTest() {
    SetUpRegistry("TXPfad", state.host.hostPath);
    state.host.registry.reset();
  }

  void SetUpRegistry(const std::string& name, const std::string& value) {
    const auto helper = services.newRegistry();
    BindHostRegistry(*helper);
    helper->Write("", name, value);
  }

  StartupOutcome Run(const std::string& commandLine) {
    return RunStartup(
        services, state, first, second, "C:\\Programme\\Brisko", commandLine,
        {[this](const std::string& text) { sent.push_back(text); }, [this] { ++executed; }});
  }

  HostHelper first{prompts};
  HostHelper second{prompts};
  std::vector<std::string> sent;
  int executed = 0;
};

TEST_F(StartupTest, RefusesEveryCommandLineThatIsNotTheHosts) {
  for (const char* line : {"", "TX", "tx:17", "Tx:17", " TX:17", "17", "\xff\xfe"}) {
    SCOPED_TRACE(line);
    prompts.boxes.clear();
    EXPECT_EQ(Run(line), StartupOutcome::kRefused);
    ASSERT_EQ(prompts.boxes.size(), 1U);
    EXPECT_EQ(prompts.boxes[0], (FakePrompts::Box{PromptIcon::kExclamation,
                                                  "Brisko kann nur über Talmix genutzt werden.",
                                                  "Programmstart nicht möglich!"}));
    EXPECT_FALSE(state.host.registry);
  }
  EXPECT_EQ(executed, 0);
}

TEST_F(StartupTest, SplitsTheCommandLineAtTildes) {
  const struct {
    std::vector<std::string> words;
    std::vector<std::string> fields;
  } kCases[] = {
      {{"TX:"}, {""}},
      {{"TX:17"}, {"17"}},
      {{"TX:17~Dial~1|030 12", "34|Firma GmbH"}, {"17", "Dial", "1|030 12 34|Firma GmbH"}},
      {{"TX:~~", "x~"}, {"", "", " x", ""}},
  };
  for (const auto& test : kCases) {
    SCOPED_TRACE(test.words.front());
    EXPECT_EQ(Run(JoinCommandLine(test.words)), StartupOutcome::kRunning);
    EXPECT_EQ(state.host.startArgs, test.fields);
  }
  EXPECT_EQ(executed, 4);
  Run("TX:" + std::string(9999, '~'));
  EXPECT_EQ(state.host.startArgs.size(), 10000U);
}

TEST_F(StartupTest, ForwardsOnlyTheUserNumberToARunningInstance) {
  instance.anotherRuns = true;
  EXPECT_EQ(Run("TX:5~Dial~1|030"), StartupOutcome::kForwarded);
  EXPECT_EQ(sent, std::vector<std::string>{"5"});
  EXPECT_EQ(Run("TX:~Dial~1|030"), StartupOutcome::kForwarded);
  EXPECT_EQ(sent.size(), 1U);
  EXPECT_EQ(executed, 0);
  EXPECT_TRUE(prompts.boxes.empty());
}

TEST_F(StartupTest, NamesTheBaseFolderThatIsOutOfReach) {
  SetUpRegistry("TXPfad", "X:\\nirgends\\");
  EXPECT_EQ(Run("TX:17"), StartupOutcome::kRefused);
  ASSERT_EQ(prompts.boxes.size(), 1U);
  EXPECT_EQ(prompts.boxes[0].text,
            "Das Talmix Basisverzeichnis steht nicht im Zugriff.\r\r> 'X:\\nirgends\\'");
  EXPECT_EQ(prompts.boxes[0].title, "Programmstart nicht möglich!");
  EXPECT_FALSE(state.host.registry);

  registry->values.clear();
  prompts.boxes.clear();
  EXPECT_EQ(Run("TX:17"), StartupOutcome::kRefused);
  EXPECT_EQ(prompts.boxes.at(0).text,
            "Das Talmix Basisverzeichnis steht nicht im Zugriff.\r\r> ''");
}

TEST_F(StartupTest, TellsWhyTheRegistryCannotBeRead) {
  registry->denyReads = true;
  EXPECT_EQ(Run("TX:17"), StartupOutcome::kRefused);
  ASSERT_EQ(prompts.boxes.size(), 2U);
  EXPECT_EQ(prompts.boxes[0], (FakePrompts::Box{PromptIcon::kStop, "Zugriffsfehler auf Registry",
                                                "Key-Zugriffsfehler 2"}));
  services.newRegistry = [] { return nullptr; };
  prompts.boxes.clear();
  EXPECT_EQ(Run("TX:17"), StartupOutcome::kRefused);
  EXPECT_EQ(prompts.boxes.at(0),
            (FakePrompts::Box{PromptIcon::kStop, "Die Anwendung Brisko reagiert nicht.",
                              "Brisko reagiert nicht!"}));
}

TEST_F(StartupTest, ChoosesTheContactDatabaseByTheLogin) {
  const struct {
    const char* what;
    std::string name, login, password;
    bool server;
  } kCases[] = {
      {"nothing stored", "", "", "", false},
      {"marker", Scrambled("SRV1"), Scrambled("~.~"), Scrambled("x"), false},
      {"plain marker", "", "~.~", "", false},
      {"server", Scrambled("SRV1"), Scrambled("büro"), Scrambled("geheim"), true},
      {"trusted connection", Scrambled("SRV1"), "", "", true},
  };
  for (const auto& test : kCases) {
    SCOPED_TRACE(test.what);
    state.host.sqlServerName.clear();
    SetUpRegistry("SrvName", test.name);
    SetUpRegistry("SrvLogin", test.login);
    SetUpRegistry("SrvPass", test.password);
    ASSERT_EQ(Run("TX:17"), StartupOutcome::kRunning);
    EXPECT_EQ(state.host.useSqlServer, test.server);
    EXPECT_EQ(state.host.sqlServerName, test.server ? "SRV1" : "");
  }
  EXPECT_EQ(state.host.resPath, state.host.hostPath + "res\\");
  EXPECT_EQ(second.LanguageResource(), "C:\\Programme\\Brisko\\zLangDE.dll");
  EXPECT_EQ(second.MessageLibrary(), "C:\\Programme\\Brisko\\Nordel17.dll");
}

}  // namespace
}  // namespace orvane
