#include "platform/linux/settings_registry.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <memory>
#include <string>

#include "contract/child_process.h"
#include "platform/errors.h"

namespace orvane {
namespace {

class SettingsRegistryTest : public testing::Test {
 protected:
  SettingsRegistryTest() { registry_.SetKeyPath("SOFTWARE\\Nordel\\Talmix18"); }

  void Put(const QByteArray& text) const {
    QFile file(path_);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
  }
  QByteArray Get() const {
    QFile file(path_);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }
  template <typename Call>
  static int ErrorOf(Call&& call) {
    try {
      call();
    } catch (const RegistryError& error) {
      return error.Number();
    }
    return 0;
  }

  QTemporaryDir folder_;
  QString path_ = folder_.filePath(QStringLiteral("registry.ini"));
  SettingsRegistry registry_{path_};
};

TEST_F(SettingsRegistryTest, ReadsHandWrittenValues) {
  struct Case {
    QByteArray line;
    std::string value;
  };
  // "$" stands for the key path.
  const Case cases[] = {
      {"$V=C:\\Daten\\Q", "C:\\Daten\\Q"},
      {"$V = 17 ", "17"},
      {"$V=0,1 , 2", "0, 1, 2"},
      {"$V=a\"  b \" ", "a  b "},
      {"$V=Gr\xC3\xBC\xC3\x9F"
       "e\r",
       "Grüße"},
      {"$V=\\x20ac-\\101", "€-A"},
      {"$V=ende\\", "ende\\"},
      {"$V=@ByteArray(abc)", "fallback"},
      {"$V=@Variant(\\0\\0\\0\\x7f)", "fallback"},
      {"$V=@Invalid()", "fallback"},
      {"$V=@String(text)", "text"},
      {"$v=first\n$V=second", "first"},
      {";$V=1\n#$V=2", "fallback"},
      {"$V=", ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.line.toStdString());
    Put("[hkey_current_user]\n" + QByteArray(c.line).replace("$", "SOFTWARE\\NORDEL\\Talmix18\\"));
    EXPECT_EQ(registry_.Read("", "V", "fallback"), c.value);
  }
}

TEST_F(SettingsRegistryTest, SharesTheFileWithTheToolkitsOwnSettings) {
  const QString key = QStringLiteral("HKEY_CURRENT_USER/SOFTWARE/Nordel/Talmix18/");
  const QString text = QStringLiteral(
      "C:\\Büro; \"1\", 2 @\x01"
      "f€ ");
  {
    QSettings settings(path_, QSettings::IniFormat);
    settings.setValue(key + QStringLiteral("Text"), text);
    settings.setValue(key + QStringLiteral("Zähler 1"), 42);
    settings.setValue(key + QStringLiteral("Bytes"), QByteArray("x"));
    settings.setValue(key + QStringLiteral("Liste"), QStringList{QStringLiteral("a"), text});
  }
  EXPECT_EQ(registry_.Read("", "text", ""), text.toStdString());
  EXPECT_EQ(registry_.Read("", "Zähler 1", ""), "42");
  EXPECT_EQ(registry_.Read("", "Bytes", "fallback"), "fallback");
  EXPECT_EQ(registry_.Read("", "Liste", ""), "a, " + text.toStdString());

  registry_.Write("Dial", "Größe%", text.toStdString());
  registry_.Write("", "TEXT", "@neu");
  const QSettings settings(path_, QSettings::IniFormat);
  EXPECT_EQ(settings.value(key + QStringLiteral("Dial/Größe%")).toString(), text);
  EXPECT_EQ(settings.value(key + QStringLiteral("Text")).toString(), QStringLiteral("@neu"));
  EXPECT_EQ(settings.value(key + QStringLiteral("Liste")).toStringList().size(), 2);
}

TEST_F(SettingsRegistryTest, WritingKeepsWhatOthersWrote) {
  Put("; Kommentar\n[HKEY_CURRENT_USER]\nSOFTWARE\\Nordel\\Talmix18\\CTI=1\n\n[Other]\nx=1,2\n");
  registry_.Write("", "cti", "2");
  registry_.Write("", "New", "3");
  EXPECT_EQ(Get(),
            "; Kommentar\n[HKEY_CURRENT_USER]\nSOFTWARE\\Nordel\\Talmix18\\CTI=\"2\"\n"
            "SOFTWARE\\Nordel\\Talmix18\\New=\"3\"\n\n[Other]\nx=1,2\n");
}

TEST_F(SettingsRegistryTest, SeesWhatAnotherProcessWritesMeanwhile) {
  for (int value = 1; value <= 9; ++value) {
    ChildProcess host([&] {
      registry_.Write("", "CTI", std::to_string(value));
      return 0;
    });
    ASSERT_EQ(host.Wait(), 0);
    EXPECT_EQ(registry_.Read("", "CTI", ""), std::to_string(value));
  }
}

TEST_F(SettingsRegistryTest, ADamagedFileIsReportedEveryTimeAndNotOverwritten) {
  for (const char* text : {"[HKEY_CURRENT_USER\nx=1\n", "[A]\nkein Wert\n",
                           "\x7F"
                           "ELF\x02"}) {
    SCOPED_TRACE(text);
    Put(text);
    EXPECT_EQ(ErrorOf([&] { registry_.Read("", "CTI", "0"); }), 1009);
    EXPECT_EQ(ErrorOf([&] { registry_.Read("", "CTI", "0"); }), 1009);
    EXPECT_EQ(ErrorOf([&] { registry_.Write("", "CTI", "1"); }), 1009);
    EXPECT_EQ(Get(), text);
  }
}

TEST_F(SettingsRegistryTest, SomethingElseInItsPlaceIsAnAccessError) {
  ASSERT_TRUE(QDir().mkpath(path_));
  EXPECT_EQ(ErrorOf([&] { registry_.Read("", "CTI", "0"); }), 5);
  EXPECT_EQ(ErrorOf([&] { registry_.Write("", "CTI", "1"); }), 5);
  ASSERT_TRUE(QDir().rmdir(path_));
  ASSERT_EQ(mkfifo(path_.toLocal8Bit().constData(), 0600), 0);
  EXPECT_EQ(ErrorOf([&] { registry_.Read("", "CTI", "0"); }), 5);
}

TEST_F(SettingsRegistryTest, MissingRightsAreAccessErrors) {
  if (geteuid() != 0) GTEST_SKIP() << "changes the user, which needs root";
  registry_.Write("", "CTI", "1");
  const auto asNobody = [&](auto&& call) {
    return ChildProcess([&] { return setuid(kNobody) == 0 ? ErrorOf(call) : 99; }).Wait();
  };
  const auto read = [&] { registry_.Read("", "CTI", "0"); };
  const auto write = [&] { registry_.Write("", "CTI", "2"); };
  const QByteArray folder = folder_.path().toLocal8Bit();
  ASSERT_EQ(chmod(folder.constData(), 0700), 0);
  EXPECT_EQ(asNobody(read), 5);
  ASSERT_EQ(chmod(folder.constData(), 0755), 0);
  EXPECT_EQ(asNobody(read), 5) << "only the owner may read the file";
  ASSERT_EQ(chmod(path_.toLocal8Bit().constData(), 0666), 0);
  EXPECT_EQ(asNobody(read), 0);
  EXPECT_EQ(asNobody(write), 5) << "the folder is read-only";
  EXPECT_EQ(registry_.Read("", "CTI", ""), "1");
}

}  // namespace
}  // namespace orvane
