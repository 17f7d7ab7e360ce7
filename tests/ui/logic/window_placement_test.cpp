#include <gtest/gtest.h>

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
  constexpr std::pair<TwipPoint, TwipPoint> kCases[] = {
      {{100, 200}, {100, 200}},    {{-15, -15}, {-15, -15}},       {{-16, -16}, {0, -15}},
      {{-500, -500}, {0, -15}},    {{14430, 3885}, {14430, 3885}}, {{14431, 3886}, {14450, 3905}},
      {{14530, 100}, {14450, 100}}};
  for (const auto& [dropped, kept] : kCases) {
    EXPECT_EQ(KeepOnScreen(dropped, kWindow, kScreen), kept) << dropped.left << "," << dropped.top;
  }
}

TEST(WindowGeometry, TellsWhetherTheUserCanReachTheWindow) {
  constexpr std::pair<TwipPoint, bool> kCases[] = {
      {{0, 0}, true},      {{-4550, 0}, false},      {{-4549, 0}, true},
      {{18759, 0}, true},  {{18760, 0}, false},      {{18800, 0}, false},
      {{0, -7785}, false}, {{0, -7784}, true},       {{0, 11339}, true},
      {{0, 11340}, false}, {{2147483647, 0}, false}, {{0, -2147483647 - 1}, false}};
  for (const auto& [place, reachable] : kCases) {
    EXPECT_EQ(IsReachable(place, kWindow, kScreen), reachable) << place.left << "," << place.top;
  }
  EXPECT_EQ(FallbackPosition(kWindow, kScreen), (TwipPoint{13530, 900}));
}

TEST(WindowGeometry, KeepsTheWidenedWindowOnTheScreen) {
  EXPECT_EQ(PadWidth(120, 4500), 4740);
  EXPECT_EQ(HistoryWidth(4755, 10350, 120), 15225);
  constexpr std::tuple<int, int, int> kCases[] = {
      {0, 15000, 0},    {4200, 15000, 4200}, {4201, 15000, 4200}, {-500, 15000, -500},
      {9000, 19200, 0}, {9000, 19230, -30},  {9000, 19231, 30},   {-20000, 19231, -20000}};
  for (const auto& [left, width, kept] : kCases) {
    EXPECT_EQ(FitWidened({left, 77}, {width, 8115}, kScreen), (TwipPoint{kept, 77}))
        << left << " " << width;
  }
}

TEST(SavedWindowPosition, ComesBackWhereItIsUsable) {
  const std::tuple<const char*, const char*, const char*, bool, TwipPoint> kCases[] = {
      {"", "", "", false, {1, 2}},         {"", "300", "-10", true, {300, -10}},
      {"", "-123", "50", false, {1, 2}},   {"", "18800", "50", false, {18800, 50}},
      {"", "abc", "50", false, {1, 2}},    {"", "99999999999", "50", false, {1, 2}},
      {"", "300", "", false, {1, 2}},      {"2", "300", "50", true, {1, 2}},
      {"0", "300", "50", true, {300, 50}}, {"7", "300", "50", true, {300, 50}}};
  for (const auto& [state, left, top, applied, position] : kCases) {
    SCOPED_TRACE(std::string(state) + " " + left + " " + top);
    FakeRegistry registry(std::make_shared<FakeRegistryStore>());
    for (const auto& [name, value] : {std::pair{"WS", state}, {"L", left}, {"T", top}}) {
      if (*value != '\0') registry.Write(kDialSection, name, value);
    }
    FakeWindow window;
    EXPECT_EQ(RestoreWindowPos(window, registry, kDialSection), applied);
    EXPECT_EQ(window.position, position);
  }
  const auto denied = std::make_shared<FakeRegistryStore>();
  denied->denyReads = true;
  FakeRegistry registry(denied);
  FakeWindow window;
  EXPECT_FALSE(RestoreWindowPos(window, registry, kDialSection));
}

TEST(SavedWindowPosition, IsWrittenInTheNormalStateOnly) {
  for (const auto state :
       {WindowState::kNormal, WindowState::kMinimised, WindowState::kMaximised}) {
    FakeRegistry registry(std::make_shared<FakeRegistryStore>());
    registry.Write(kDialSection, "L", "77");
    FakeWindow window;
    window.state = state;
    window.position = {300, -15};
    SaveWindowPos(window, registry, kDialSection);
    std::string stored;
    for (const char* name : {"L", "T", "W", "H"}) {
      stored += registry.Read(kDialSection, name, "") + " ";
    }
    EXPECT_EQ(stored, state == WindowState::kNormal ? "300 -15 4770 8115 " : "77    ");
  }
}

}  // namespace
}  // namespace orvane
