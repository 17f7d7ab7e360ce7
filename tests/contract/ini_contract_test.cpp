#include <gtest/gtest.h>

#include "contract/system_implementations.h"
#include "fakes/fake_ini.h"
#include "fakes/temporary_folder.h"

namespace orvane {
namespace {

const std::string kLong(300, 'x');

class IniContract : public testing::Test {
 protected:
  std::string Write(const std::string& text) const {
    return folder_.Write("Global.ini", text).string();
  }
  TemporaryFolder folder_;
  std::unique_ptr<IniFile> ini_ = NewSystemIni();
};

TEST_F(IniContract, ReadsAsTheSystemCall) {
  const std::tuple<const char*, std::string, std::string> kCases[] = {
      {"plain", "[Tel]\r\nLandVorwahl=+49\r\n", "+49"},
      {"line feeds only", "[Tel]\nLandVorwahl=+49\n", "+49"},
      {"last line without an end", "[Tel]\nLandVorwahl=+49", "+49"},
      {"letter case", "[TEL]\nlandVORWAHL=+43", "+43"},
      {"blanks around names and value", " \t[ Tel ] x\n \tLandVorwahl \t=\t +41 \t\n", "+41"},
      {"double quotes", "[Tel]\nLandVorwahl=\" +49 \"", " +49 "},
      {"single quotes, one pair only", "[Tel]\nLandVorwahl='\"+49\"'", "\"+49\""},
      {"unpaired quotes", "[Tel]\nLandVorwahl=\"+49'", "\"+49'"},
      {"a lone quote", "[Tel]\nLandVorwahl=\"", "\""},
      {"empty value", "[Tel]\nLandVorwahl=\n", ""},
      {"empty quotes", "[Tel]\nLandVorwahl=\"\"", ""},
      {"more equals signs", "[Tel]\nLandVorwahl=a=b", "a=b"},
      {"a semicolon behind the value belongs to it", "[Tel]\nLandVorwahl=+49;x", "+49;x"},
      {"comments", "[Tel]\n;LandVorwahl=1\n  ; LandVorwahl=2\nLandVorwahl=3", "3"},
      {"first key counts", "[Tel]\nLandVorwahl=1\nLandVorwahl=2", "1"},
      {"first section counts", "[Tel]\nx=1\n[B]\n[Tel]\nLandVorwahl=2", "fallback"},
      {"other section", "[Telefon]\nLandVorwahl=1\n[T]\nLandVorwahl=2", "fallback"},
      {"before any section", "LandVorwahl=1\n[Tel]", "fallback"},
      {"key without equals sign", "[Tel]\nLandVorwahl\n", "fallback"},
      {"key that only begins alike", "[Tel]\nLandVorwahl2=1\nLand=2", "fallback"},
      {"254 bytes at most", "[Tel]\nLandVorwahl=" + kLong, kLong.substr(0, 254)},
      {"the quotes are not counted", "[Tel]\nLandVorwahl='" + kLong + "'", kLong.substr(0, 254)},
      {"code page", "[Tel]\nLandVorwahl=\xE4\x80\x81", "ä€\xC2\x81"},
      {"a zero byte ends the value", std::string("[Tel]\nLandVorwahl=a\0b\n", 20), "a"},
      {"end-of-file mark", "[Tel]\nLandVorwahl=+49\x1A", "+49"},
      {"no text", "", "fallback"},
      {"noise", "\x01\xFF=[]]=[\n[\n]\n=\n[Tel]\n=x\nLandVorwahl=1", "1"}};
  for (const auto& [what, text, value] : kCases) {
    EXPECT_EQ(ini_->Read("Tel", "LandVorwahl", Write(text), "fallback"), value) << what;
  }
  const std::string umlauts = Write("[\xDC\x42]\n\x8EL=1\n\xFF=2");
  EXPECT_EQ(ini_->Read("Üb", "Žl", umlauts, ""), "1");
  EXPECT_EQ(ini_->Read(" Üb ", " ÿ ", umlauts, ""), "2");
}

// What holds for the stand-in too, which is given its values without a file.
TEST_F(IniContract, TheFakeAnswersAlike) {
  FakeIni fake;
  fake.values[{"Tel", "LandVorwahl"}] = "+43";
  fake.values[{"Tel", "Lang"}] = kLong;
  const std::string file = Write("[Tel]\nLandVorwahl=+43\nLang=" + kLong);
  for (IniFile* ini : std::initializer_list<IniFile*>{&fake, ini_.get()}) {
    SCOPED_TRACE(ini == &fake ? "fake" : "file");
    EXPECT_EQ(ini->Read("TEL", "landvorwahl", file, ""), "+43");
    EXPECT_EQ(ini->Read("Tel", "Lang", file, ""), kLong.substr(0, 254));
    EXPECT_EQ(ini->Read("Tel", "x", file, " +49  "), " +49");
    EXPECT_EQ(ini->Read("x", "LandVorwahl", file, kLong), kLong.substr(0, 254));
  }
}

TEST_F(IniContract, ReadsOnlyFiles) {
  Write("[Tel]\na=1");
  const std::string folder = folder_.Path().string();
  EXPECT_EQ(ini_->Read("Tel", "a", folder + "\\GLOBAL.INI", "f"), "1");
  EXPECT_EQ(ini_->Read("Tel", "a", folder, "f"), "f");
}

}  // namespace
}  // namespace orvane
