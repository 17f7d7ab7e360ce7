#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <functional>
#include <memory>
#include <string>

#include "fakes/fake_registry.h"
#include "platform/linux/settings_registry.h"

namespace orvane {
namespace {

RegistryFactory MakeSettingsRegistries() {
  const auto folder = std::make_shared<QTemporaryDir>();
  return [folder] {
    return std::make_unique<SettingsRegistry>(folder->filePath(QStringLiteral("a/registry.ini")));
  };
}

RegistryFactory MakeFakeRegistries() {
  return FakeRegistryFactory(std::make_shared<FakeRegistryStore>());
}

using Store = RegistryFactory (*)();

// Each factory's objects are bound to one store.
class RegistryContract : public testing::TestWithParam<Store> {
 protected:
  std::unique_ptr<HostRegistry> Bound(std::string_view path = "SOFTWARE\\Nordel\\Talmix18") {
    auto registry = factory_();
    registry->SetApplicationName("Talmix18");
    registry->SetRootKey(kRootCurrentUser);
    registry->SetKeyPath(path);
    return registry;
  }
  RegistryFactory factory_ = GetParam()();
};

TEST_P(RegistryContract, MissingValuesGiveTheFallback) {
  const auto registry = Bound();
  EXPECT_EQ(registry->Read("", "CTI", "0"), "0");
  registry->Write("", "COMPort", "3");
  EXPECT_EQ(registry->Read("", "CTI", " x "), " x ");
  EXPECT_EQ(registry->Read("Dial", "COMPort", "1"), "1");
}

TEST_P(RegistryContract, EveryTextComesBackAsItWas) {
  const std::string_view texts[] = {
      "",
      "C:\\Talmix\\",
      " vorn und hinten ",
      "~.~",
      "0,1;2=3",
      "@home",
      "@@",
      "@Variant(a)",
      "\"quoted\" 'text'",
      "Grüße € 😀",
      "a\r\nb",
      "\1f",
      std::string_view("x\0y", 3),
      "# ; [x]",
      "%41",
      "\\",
  };
  for (const auto text : texts) {
    SCOPED_TRACE(text);
    Bound()->Write("Dial", "L", text);
    EXPECT_EQ(Bound()->Read("Dial", "L", "fallback"), text);
  }
}

TEST_P(RegistryContract, NamesAndSubKeysIgnoreTheLetterCase) {
  Bound()->Write("Dial", "ComPort", "4");
  EXPECT_EQ(Bound()->Read("DIAL", "COMPort", ""), "4");
  EXPECT_EQ(Bound("software\\nordel\\TALMIX18")->Read("dial", "comport", ""), "4");
  Bound()->Write("dial", "COMPORT", "5");
  EXPECT_EQ(Bound()->Read("Dial", "ComPort", ""), "5");
}

TEST_P(RegistryContract, KeysAreApart) {
  Bound()->Write("", "Name", "here");
  Bound()->Write("Dial", "Name", "below");
  Bound("SOFTWARE\\Other")->Write("", "Name", "elsewhere");
  EXPECT_EQ(Bound()->Read("", "Name", ""), "here");
  EXPECT_EQ(Bound()->Read("Dial", "Name", ""), "below");
  EXPECT_EQ(Bound("SOFTWARE\\Nordel")->Read("Talmix18\\Dial", "Name", ""), "below");
  EXPECT_EQ(Bound("SOFTWARE\\Other")->Read("", "Name", ""), "elsewhere");
}

INSTANTIATE_TEST_SUITE_P(Settings, RegistryContract, testing::Values(&MakeSettingsRegistries));
INSTANTIATE_TEST_SUITE_P(Fake, RegistryContract, testing::Values(&MakeFakeRegistries));

}  // namespace
}  // namespace orvane
