#include "host_installation.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>

#include "app/host_paths.h"
#include "fakes/fake_prompts.h"
#include "fakes/fake_registry.h"
#include "platform/native_path.h"

namespace orvane {
namespace {

std::string ReadAll(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

class HostInstallationTest : public testing::Test {
 protected:
  void SetUp() override {
    // One folder a test, because ctest runs them at the same time.
    folder_ = std::filesystem::path(testing::TempDir()) /
              testing::UnitTest::GetInstance()->current_test_info()->name() / "Büro ß";
    std::filesystem::remove_all(folder_);
  }
  void TearDown() override { std::filesystem::remove_all(folder_.parent_path()); }

  HostInstallation Build(const HostInstallationOptions& options = {}) {
    FakeRegistry registry(store_);
    return BuildHostInstallation(folder_, registry, options);
  }

  // What start-up finds in the installation.
  HostEnvironment Found() {
    HostEnvironment host;
    host.registry = std::make_unique<FakeRegistry>(store_);
    BindHostRegistry(*host.registry);
    EXPECT_TRUE(ReadHostPaths(host, prompts_));
    return host;
  }

  std::filesystem::path folder_;
  std::shared_ptr<FakeRegistryStore> store_ = std::make_shared<FakeRegistryStore>();
  FakePrompts prompts_;
};

TEST_F(HostInstallationTest, IsFoundByStartUp) {
  Build();
  const auto host = Found();
  EXPECT_FALSE(host.useSqlServer);
  EXPECT_TRUE(host.hostPath.ends_with("\\Büro ß\\"));
  for (const std::string& file :
       {host.dataPath + "Global.ini", host.dataPath + "CONTACT.FDB",
        UserFolder(host, 17) + "res\\TelList.fdb", UserFolder(host, 17) + "res\\Kurzwahl.dat"}) {
    SCOPED_TRACE(file);
    EXPECT_TRUE(std::filesystem::is_regular_file(NativePath(file)));
  }
  EXPECT_TRUE(std::filesystem::is_directory(NativePath(host.resPath)));
}

TEST_F(HostInstallationTest, StoresServerSettingsScrambled) {
  HostInstallationOptions options;
  options.serverName = "SRV\\SQL";
  options.serverLogin = "wähler";
  options.serverPassword = "geheim";
  Build(options);
  for (const auto& [key, value] : store_->values) EXPECT_NE(value, "geheim") << key;
  const auto host = Found();
  EXPECT_TRUE(host.useSqlServer);
  EXPECT_EQ(host.sqlServerName, "SRV\\SQL");
  EXPECT_EQ(host.sqlLogin, "wähler");
  EXPECT_EQ(host.sqlPassword, "geheim");
}

TEST_F(HostInstallationTest, WritesTextFilesInTheHostsCodePage) {
  HostInstallationOptions options;
  options.internalSpeedDial = {{"Öl", "1"}};
  options.externalSpeedDial = {};
  options.internalMax3 = "0";
  const auto host = Build(options);
  EXPECT_EQ(ReadAll(host.speedDialFile),
            "\xD6l|1|" + std::string(14, '|') + "\xBF" + std::string(16, '|') + "\xBF");
  EXPECT_NE(ReadAll(host.globalIni).find("[Tel]\r\nLandVorwahl=+49\r\nInternMax3=0\r\n"),
            std::string::npos);
}

TEST_F(HostInstallationTest, KeepsTheJournalWhenBuiltAgain) {
  const auto host = Build();
  std::ofstream(host.journalFile, std::ios::binary | std::ios::trunc) << "calls";
  Build();
  EXPECT_EQ(ReadAll(host.journalFile), "calls");
}

TEST(HostRawNumber, IsInternationalDigits) {
  const struct {
    const char* written;
    const char* raw;
  } cases[] = {{"", ""},
               {"030 / 23125-0", "4930231250"},
               {"+43 1 234", "431234"},
               {"0043 1 234", "431234"},
               {"301234", "49301234"}};
  for (const auto& item : cases) EXPECT_EQ(HostRawNumber(item.written), item.raw) << item.written;
}

}  // namespace
}  // namespace orvane
