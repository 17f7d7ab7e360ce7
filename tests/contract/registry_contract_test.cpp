#include <gtest/gtest.h>

#include "contract/system_implementations.h"
#include "fakes/fake_registry.h"

namespace orvane {
namespace {

RegistryFactory MakeFakeRegistries() {
  return FakeRegistryFactory(std::make_shared<FakeRegistryStore>());
}

using std::string_view_literals::operator""sv;

// Each factory's objects are bound to one store.
class RegistryContract : public testing::TestWithParam<RegistryFactory (*)()> {
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

TEST_P(RegistryContract, EveryTextComesBackAsItWas) {
  EXPECT_EQ(Bound()->Read("", "CTI").value_or(" x "), " x ");
  for (const std::string_view text :
       {""sv, "C:\\Talmix\\"sv, " vorn, hinten "sv, "~.~"sv, "0,1;2=3"sv, "@home"sv, "@@"sv,
        "@Variant(a)"sv, "\"q\" 'text'"sv, "Grüße € 😀"sv, "a\r\nb"sv, "\1f"sv, "# ; [x]"sv,
        "%41\\"sv}) {
    Bound()->Write("Dial", "L", text);
    EXPECT_EQ(Bound()->Read("Dial", "L").value_or("fallback"), text);
  }
}

TEST_P(RegistryContract, ATextEndsAtItsFirstZero) {
  Bound()->Write("Dial", "L", "x\0y"sv);
  EXPECT_EQ(Bound()->Read("Dial", "L").value_or("fallback"), "x");
}

TEST_P(RegistryContract, WhatIsRemovedCountsAsNeverWritten) {
  Bound()->Remove("Dial", "L");
  Bound()->Write("Dial", "L", "1");
  Bound()->Write("Dial", "Left", "2");
  Bound()->Remove("dial", "l");
  EXPECT_EQ(Bound()->Read("Dial", "L").value_or("fallback"), "fallback");
  EXPECT_EQ(Bound()->Read("Dial", "Left").value_or(""), "2");
}

TEST_P(RegistryContract, NamesIgnoreTheLetterCaseAndKeysAreApart) {
  Bound()->Write("Dial", "ComPort", "4");
  EXPECT_EQ(Bound("software\\nordel\\TALMIX18")->Read("dial", "comport").value_or(""), "4");
  Bound()->Write("dial", "COMPORT", "5");
  Bound()->Write("", "ComPort", "here");
  Bound("SOFTWARE\\Other")->Write("", "ComPort", "elsewhere");
  EXPECT_EQ(Bound()->Read("", "ComPort").value_or(""), "here");
  EXPECT_EQ(Bound("SOFTWARE\\Nordel")->Read("Talmix18\\Dial", "ComPort").value_or(""), "5");
  EXPECT_EQ(Bound("SOFTWARE\\Other")->Read("", "ComPort").value_or(""), "elsewhere");
}

INSTANTIATE_TEST_SUITE_P(System, RegistryContract, testing::Values(&MakeSystemRegistries));
INSTANTIATE_TEST_SUITE_P(Fake, RegistryContract, testing::Values(&MakeFakeRegistries));

}  // namespace
}  // namespace orvane
