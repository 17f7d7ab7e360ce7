#include "platform/native_path.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <filesystem>
#include <fstream>
#include <string>

namespace orvane {
namespace {

namespace fs = std::filesystem;

TEST(NativePath, FindsExistingNamesInAnyLetterCase) {
  const QTemporaryDir temporary;
  const fs::path root = temporary.path().toStdString();
  fs::create_directories(root / "Daten/User/17/RES");
  fs::create_directories(root / "GRÜẞE/übung");
  fs::create_directories(root / "zwei");
  fs::create_directories(root / "Zwei");
  std::ofstream(root / "Daten/global.INI") << "x";

  struct Case {
    std::string written;
    fs::path found;
  };
  const Case cases[] = {
      {"\\daten\\Global.ini", "Daten/global.INI"},
      {"\\DATEN\\user\\17\\res\\TelList.fdb", "Daten/User/17/RES/TelList.fdb"},
      {"/Daten\\\\User/", "Daten/User/"},
      {"\\Fehlt\\daten\\x", "Fehlt/daten/x"},
      {"\\Zwei", "Zwei"},
      {"\\zwei", "zwei"},
      {"\\ZWEI", "Zwei"},
      {"\\GRÜẞE\\Übung", "GRÜẞE/übung"},
      {"\\Daten\\global.ini\\unter", "Daten/global.INI/unter"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.written);
    EXPECT_EQ(NativePath(root.string() + c.written), root / c.found);
  }
}

TEST(NativePath, EmptyStaysEmpty) {
  EXPECT_EQ(NativePath(""), fs::path());
}

}  // namespace
}  // namespace orvane
