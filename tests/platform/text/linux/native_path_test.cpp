#include "platform/text/native_path.h"

#include <gtest/gtest.h>

#include "fakes/temporary_folder.h"

namespace orvane {

TEST(NativePath, FindsExistingNamesInAnyLetterCase) {
  const TemporaryFolder root;
  for (const char* const name : {"Daten/User/17/RES", "GRÜẞE/übung", "zwei", "Zwei"}) {
    std::filesystem::create_directories(root / name);
  }
  root.Write("Daten/global.INI", "x");
  const std::pair<const char*, const char*> kCases[] = {
      {"\\daten\\Global.ini", "Daten/global.INI"},
      {"\\DATEN\\user\\17\\res\\TelList.fdb", "Daten/User/17/RES/TelList.fdb"},
      {"/Daten\\\\User/", "Daten/User/"},
      {"\\Fehlt\\daten\\x", "Fehlt/daten/x"},
      {"\\Zwei", "Zwei"},
      {"\\zwei", "zwei"},
      {"\\ZWEI", "Zwei"},
      {"\\GRÜẞE\\Übung", "GRÜẞE/übung"},
      {"\\Daten\\global.ini\\unter", "Daten/global.INI/unter"}};
  for (const auto& [written, found] : kCases) {
    EXPECT_EQ(NativePath(root.Path().string() + written), root / found) << written;
  }
  EXPECT_EQ(NativePath(""), std::filesystem::path());
}

}  // namespace orvane
