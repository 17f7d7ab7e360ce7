#include <gtest/gtest.h>

#include <map>
#include <string>

#include "fakes/fake_registry.h"
#include "ui/logic/window_geometry.h"
#include "ui/logic/window_settings.h"

namespace orvane {
namespace {

constexpr TwipSize kScreen{19200, 12000};
constexpr TwipSize kWindow{4770, 8115};

class FakeWindow : public PlacedWindow {
 public:
  WindowState State() const override { return state; }
  void SetState(WindowState value) override { state = value; }
  TwipPoint Position() const override { return position; }
  void MoveTo(TwipPoint value) override { position = value; }
  TwipSize Size() const override { return kWindow; }
  TwipSize ScreenSize() const override { return kScreen; }

  WindowState state = WindowState::kNormal;
  TwipPoint position{1, 2};
};

TEST(WindowGeometry, SnapsBackWhatLeftTheScreen) {
  struct Case {
    TwipPoint dropped;
    TwipPoint kept;
  };
  const Case cases[] = {
      {{100, 200}, {100, 200}},     {{-15, -15}, {-15, -15}},       {{-16, -16}, {0, -15}},
      {{-500, -500}, {0, -15}},     {{14430, 3885}, {14430, 3885}}, {{14431, 3886}, {14450, 3905}},
      {{14530, 100}, {14450, 100}},
  };
  for (const auto& [dropped, kept] : cases) {
    SCOPED_TRACE(std::to_string(dropped.left) + "," + std::to_string(dropped.top));
    EXPECT_EQ(KeepOnScreen(dropped, kWindow, kScreen), kept);
  }
}

TEST(WindowGeometry, TellsWhetherTheUserCanReachTheWindow) {
  struct Case {
    TwipPoint position;
    bool reachable;
  };
  const Case cases[] = {
      {{0, 0}, true},      {{-4550, 0}, false},      {{-4549, 0}, true},
      {{18759, 0}, true},  {{18760, 0}, false},      {{18800, 0}, false},
      {{0, -7785}, false}, {{0, -7784}, true},       {{0, 11339}, true},
      {{0, 11340}, false}, {{2147483647, 0}, false}, {{0, -2147483647 - 1}, false},
  };
  for (const auto& [position, reachable] : cases) {
    SCOPED_TRACE(std::to_string(position.left) + "," + std::to_string(position.top));
    EXPECT_EQ(IsReachable(position, kWindow, kScreen), reachable);
  }
  EXPECT_EQ(FallbackPosition(kWindow, kScreen), (TwipPoint{13530, 900}));
}

TEST(SavedWindowPosition, ComesBackWhereItIsUsable) {
  struct Case {
    const char* name;
    std::map<std::string, std::string> stored;
    bool applied;
    TwipPoint position;
  };
  const Case cases[] = {
      {"nothing", {}, false, {1, 2}},
      {"normal", {{"L", "300"}, {"T", "-10"}, {"W", "1"}, {"H", "1"}}, true, {300, -10}},
      {"marker", {{"L", "-123"}, {"T", "50"}}, false, {1, 2}},
      {"off screen", {{"L", "18800"}, {"T", "50"}}, false, {18800, 50}},
      {"no number", {{"L", "abc"}, {"T", "50"}}, false, {1, 2}},
      {"too large", {{"L", "99999999999"}, {"T", "50"}}, false, {1, 2}},
      {"half a position", {{"L", "300"}}, false, {1, 2}},
      {"maximised", {{"WS", "2"}, {"L", "300"}, {"T", "50"}}, true, {1, 2}},
      {"normal state", {{"WS", "0"}, {"L", "300"}, {"T", "50"}}, true, {300, 50}},
      {"unknown state", {{"WS", "7"}, {"L", "300"}, {"T", "50"}}, true, {300, 50}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    FakeRegistry registry(std::make_shared<FakeRegistryStore>());
    for (const auto& [name, value] : c.stored) registry.Write(kDialSection, name, value);
    FakeWindow window;
    EXPECT_EQ(RestoreWindowPos(window, registry, kDialSection), c.applied);
    EXPECT_EQ(window.position, c.position);
  }
}

TEST(SavedWindowPosition, IsWrittenInTheNormalStateOnly) {
  for (const auto state :
       {WindowState::kNormal, WindowState::kMinimised, WindowState::kMaximised}) {
    SCOPED_TRACE(static_cast<int>(state));
    FakeRegistry registry(std::make_shared<FakeRegistryStore>());
    registry.Write(kDialSection, "L", "77");
    FakeWindow window;
    window.state = state;
    window.position = {300, -15};
    SaveWindowPos(window, registry, kDialSection);
    const bool saved = state == WindowState::kNormal;
    EXPECT_EQ(registry.Read(kDialSection, "L", ""), saved ? "300" : "77");
    EXPECT_EQ(registry.Read(kDialSection, "T", ""), saved ? "-15" : "");
    EXPECT_EQ(registry.Read(kDialSection, "W", ""), saved ? "4770" : "");
    EXPECT_EQ(registry.Read(kDialSection, "H", ""), saved ? "8115" : "");
  }
}

TEST(SavedWindowPosition, AnUnreadableRegistryCountsAsNothingSaved) {
  const auto store = std::make_shared<FakeRegistryStore>();
  store->denyReads = true;
  FakeRegistry registry(store);
  FakeWindow window;
  EXPECT_FALSE(RestoreWindowPos(window, registry, kDialSection));
}

}  // namespace
}  // namespace orvane
