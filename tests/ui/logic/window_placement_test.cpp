#include <gtest/gtest.h>

#include "fakes/fake_registry.h"
#include "ui/logic/view_toggle.h"
#include "ui/logic/window_geometry.h"
#include "ui/logic/window_settings.h"

namespace orvane {
namespace {

constexpr TwipScreen kScreen{{0, 0}, {19200, 12000}};
// Stands to the right of the main screen and a little lower.
constexpr TwipScreen kSecondScreen{{19200, 3000}, {15000, 9000}};
constexpr TwipScreen kScreenAbove{{0, -16200}, {28800, 16200}};
constexpr TwipSize kWindow{4770, 8115};
constexpr TwipSize kCompact{4770, 990};

class FakeWindow : public PlacedWindow, public TwoViews {
 public:
  WindowState State() const override { return state; }
  void SetState(WindowState value) override { state = value; }
  TwipPoint Position() const override { return position; }
  void MoveTo(TwipPoint value) override { position = value; }
  TwipSize Size() const override { return size; }
  std::vector<TwipScreen> Screens() const override { return screens; }
  void ShowListControls(bool shown) override { Step("list", shown); }
  void ShowCommandButtons(bool shown) override { Step("commands", shown); }
  void ArrangePanel(DialView view) override {
    size = view == DialView::kFull ? kWindow : kCompact;
    Step("panel", view == DialView::kFull);
  }
  void ApplyWindowShape() override { Step("shape", true); }
  void SetTopmost(bool topmost) override { Step("topmost", topmost); }

  void Step(const char* what, bool on) {
    const bool hidden = ScreenShowing(position, kWindow, screens) == nullptr;
    steps += std::string(hidden ? "(" : "") + what + (on ? "+" : "-") + (hidden ? ") " : " ");
  }

  WindowState state = WindowState::kNormal;
  TwipPoint position{1, 2};
  TwipSize size = kWindow;
  std::vector<TwipScreen> screens = std::vector<TwipScreen>(1, kScreen);
  std::string steps;
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

TEST(WindowGeometry, ReckonsFromTheScreenThatTheWindowIsOn) {
  const TwipScreen screens[] = {kScreen, kSecondScreen};
  const std::pair<TwipPoint, const TwipScreen*> kCases[] = {
      {{0, 0}, &screens[0]},         {{16000, 3000}, &screens[0]},  {{17000, 3000}, &screens[1]},
      {{16815, 3000}, &screens[0]},  {{34199, 11999}, &screens[1]}, {{34200, 3000}, nullptr},
      {{2147483647, 3000}, nullptr}, {{-4770, 0}, nullptr}};
  for (const auto& [place, screen] : kCases) {
    EXPECT_EQ(ScreenShowing(place, kWindow, screens), screen) << place.left << "," << place.top;
  }
  EXPECT_EQ(KeepOnScreen({19100, 2900}, kWindow, kSecondScreen), (TwipPoint{19200, 2985}));
  EXPECT_EQ(KeepOnScreen({33000, 9000}, kWindow, kSecondScreen), (TwipPoint{29450, 3905}));
  EXPECT_TRUE(IsReachable({19000, 3000}, kWindow, kSecondScreen));
  EXPECT_FALSE(IsReachable({19000, 11400}, kWindow, kSecondScreen));
  EXPECT_EQ(FallbackPosition(kWindow, kSecondScreen), (TwipPoint{28530, 3900}));
}

TEST(ViewToggle, DocksTheCompactViewAndBringsTheFullOneBack) {
  struct Case {
    std::vector<TwipScreen> screens;
    TwipPoint full, docked, back;
  };
  const Case kCases[] = {
      {{kScreen}, {300, 400}, {7215, -15}, {300, 400}},
      {{kScreen}, {-4000, 11000}, {7215, -15}, {0, 3905}},
      {{kScreen, kSecondScreen}, {20000, 3500}, {24315, 2985}, {20000, 3500}},
      {{kScreen, kScreenAbove}, {300, 400}, {7215, -15}, {300, 400}},
      {{kScreen, kScreenAbove}, {300, -9000}, {12015, -16215}, {300, -9000}},
  };
  for (const Case& c : kCases) {
    SCOPED_TRACE(c.full.left);
    FakeWindow window;
    window.screens = c.screens;
    window.position = c.full;
    TwipPoint remembered;
    remembered = SwitchView(window, window, DialView::kCompact, remembered);
    EXPECT_EQ(window.position, c.docked);
    EXPECT_EQ(window.steps, "(list-) (panel-) (shape+) (commands-) (topmost+) ");
    window.position = {500, 500};
    window.steps.clear();
    remembered = SwitchView(window, window, DialView::kFull, remembered);
    EXPECT_EQ(window.position, c.back);
    EXPECT_EQ(window.steps, "(list+) (panel+) shape+ commands+ topmost- ");
  }
  EXPECT_EQ(CompactPanelHeight(60, 480), 555);
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
      {"", "300", "", true, {300, 2}},     {"2", "300", "50", true, {1, 2}},
      {"0", "300", "50", true, {300, 50}}, {"7", "300", "50", true, {300, 50}}};
  for (const auto& [state, left, top, applied, position] : kCases) {
    SCOPED_TRACE(std::string(state) + " " + left + " " + top);
    FakeRegistry registry(std::make_shared<FakeRegistryStore>());
    for (const auto& [name, value] : {std::pair{"WS", state}, {"L", left}, {"T", top}}) {
      if (*value != '\0') registry.Write("Dial", name, value);
    }
    FakeWindow window;
    EXPECT_EQ(RestoreWindowPos(window, registry), applied);
    EXPECT_EQ(window.position, position);
  }
  const auto denied = std::make_shared<FakeRegistryStore>();
  denied->denyReads = true;
  FakeRegistry registry(denied);
  FakeWindow window;
  EXPECT_FALSE(RestoreWindowPos(window, registry));
}

TEST(SavedWindowPosition, OfAScreenThatIsGoneIsNotUsed) {
  FakeRegistry registry(std::make_shared<FakeRegistryStore>());
  registry.Write("Dial", "L", "22000");
  registry.Write("Dial", "T", "4000");
  FakeWindow window;
  window.screens = {kScreen, kSecondScreen};
  EXPECT_TRUE(RestoreWindowPos(window, registry));
  window.screens = {kScreen};
  EXPECT_FALSE(RestoreWindowPos(window, registry));
}

TEST(SavedWindowPosition, IsWrittenInTheNormalStateOnly) {
  for (const auto state :
       {WindowState::kNormal, WindowState::kMinimised, WindowState::kMaximised}) {
    FakeRegistry registry(std::make_shared<FakeRegistryStore>());
    registry.Write("Dial", "L", "77");
    FakeWindow window;
    window.state = state;
    window.position = {300, -15};
    SaveWindowPos(window, registry);
    std::string stored;
    for (const char* name : {"L", "T", "W", "H"}) {
      stored += registry.Read("Dial", name).value_or("") + " ";
    }
    EXPECT_EQ(stored, state == WindowState::kNormal ? "300 -15 4770 8115 " : "77    ");
  }
}

}  // namespace
}  // namespace orvane
