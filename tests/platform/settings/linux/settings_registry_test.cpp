#include "platform/settings/linux/settings_registry.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "fakes/child_process.h"
#include "fakes/temporary_folder.h"
#include "platform/errors.h"

namespace orvane {
namespace {

class SettingsRegistryTest : public testing::Test {
 protected:
  SettingsRegistryTest() { registry_.SetKeyPath("SOFTWARE\\Nordel\\Talmix18"); }

  void Put(std::string_view text) const { folder_.Write("registry.ini", text); }
  static int ErrorOf(const std::function<void()>& call) {
    try {
      call();
    } catch (const RegistryError& error) {
      return error.Number();
    }
    return 0;
  }

  TemporaryFolder folder_;
  std::filesystem::path file_ = folder_ / "registry.ini";
  SettingsRegistry registry_{QString::fromStdString(file_.string())};
  std::function<void()> read_ = [this] { registry_.Read("", "CTI").value_or("0"); };
  std::function<void()> write_ = [this] { registry_.Write("", "CTI", "2"); };
};

TEST_F(SettingsRegistryTest, ReadsHandWrittenValues) {
  // Each line behind the section and the key path.
  constexpr std::pair<const char*, const char*> kCases[] = {
      {"V=C:\\Daten\\Q", "C:\\Daten\\Q"},
      {"V = 17 ", "17"},
      {"V=0,1 , 2", "0, 1, 2"},
      {"V=a\"  b \" ", "a  b "},
      {"V=Grüße\r", "Grüße"},
      {"V=\\x20ac-\\101", "€-A"},
      {"V=ende\\", "ende\\"},
      {"V=@ByteArray(abc)", "fallback"},
      {"V=@Variant(\\0\\0\\0\\x7f)", "fallback"},
      {"V=@Invalid()", "fallback"},
      {"V=@String(text)", "text"},
      {"v=first\nSOFTWARE\\Nordel\\Talmix18\\V=second", "first"},
      {"X=0\n;SOFTWARE\\Nordel\\Talmix18\\V=1", "fallback"},
      {"V=", ""}};
  for (const auto& [line, value] : kCases) {
    Put("[hkey_current_user]\nSOFTWARE\\NORDEL\\Talmix18\\" + std::string(line));
    EXPECT_EQ(registry_.Read("", "V").value_or("fallback"), value) << line;
  }
}

TEST_F(SettingsRegistryTest, WritingKeepsWhatOthersWrote) {
  Put("; Kommentar\n[HKEY_CURRENT_USER]\nSOFTWARE\\Nordel\\Talmix18\\CTI=1\n\n[Other]\nx=1,2\n");
  registry_.Write("", "cti", "2");
  registry_.Write("", "New", "3");
  EXPECT_EQ(ReadFile(file_),
            "; Kommentar\n[HKEY_CURRENT_USER]\nSOFTWARE\\Nordel\\Talmix18\\CTI=\"2\"\n"
            "SOFTWARE\\Nordel\\Talmix18\\New=\"3\"\n\n[Other]\nx=1,2\n");
  for (const std::string value : {"4", "5", "6"}) {
    ChildProcess host([&](const auto&) { return registry_.Write("", "CTI", value), 0; });
    host.Wait();
    EXPECT_EQ(registry_.Read("", "CTI").value_or(""), value);
  }
}

TEST_F(SettingsRegistryTest, ADamagedFileIsReportedEveryTimeAndNotOverwritten) {
  for (const char* text : {"[HKEY_CURRENT_USER\nx=1\n", "[A]\nkein Wert\n", "\x7F\x45LF\x02"}) {
    SCOPED_TRACE(text);
    Put(text);
    for (const auto& call : {read_, read_, write_}) EXPECT_EQ(ErrorOf(call), 1009);
    EXPECT_EQ(ReadFile(file_), text);
  }
}

TEST_F(SettingsRegistryTest, SomethingElseInItsPlaceIsAnAccessError) {
  std::filesystem::create_directory(file_);
  EXPECT_EQ(ErrorOf(read_), 5);
  EXPECT_EQ(ErrorOf(write_), 5);
  std::filesystem::remove(file_);
  ASSERT_EQ(mkfifo(file_.c_str(), 0600), 0);
  EXPECT_EQ(ErrorOf(read_), 5);
}

TEST_F(SettingsRegistryTest, MissingRightsAreAccessErrors) {
  if (geteuid() != 0) GTEST_SKIP() << "changes the user, which needs root";
  registry_.Write("", "CTI", "1");
  const auto asNobody = [](const std::function<void()>& call) {
    return ChildProcess([&](const auto&) { return setuid(kNobody) == 0 ? ErrorOf(call) : 99; })
        .Wait();
  };
  EXPECT_EQ(asNobody(read_), 5);
  chmod(folder_.Path().c_str(), 0755);
  EXPECT_EQ(asNobody(read_), 5) << "only the owner may read the file";
  chmod(file_.c_str(), 0666);
  EXPECT_EQ(asNobody(read_), 0);
  EXPECT_EQ(asNobody(write_), 5) << "the folder is read-only";
  EXPECT_EQ(registry_.Read("", "CTI").value_or(""), "1");
}

}  // namespace
}  // namespace orvane
