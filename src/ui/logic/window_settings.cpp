#include "ui/logic/window_settings.h"

#include <charconv>
#include <optional>
#include <string>

#include "platform/errors.h"

namespace orvane {
namespace {

constexpr std::string_view kLeftValue = "L";
constexpr std::string_view kTopValue = "T";
constexpr std::string_view kWidthValue = "W";
constexpr std::string_view kHeightValue = "H";
constexpr std::string_view kStateValue = "WS";
constexpr int kNothingSaved = -123;

std::optional<int> ReadNumber(HostRegistry& registry, std::string_view section,
                              std::string_view name) {
  try {
    const std::string text = registry.Read(section, name, "");
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return number;
  } catch (const RegistryError&) {
    return std::nullopt;
  }
}

std::optional<WindowState> ReadState(HostRegistry& registry, std::string_view section) {
  const std::optional<int> number = ReadNumber(registry, section, kStateValue);
  if (!number || *number < static_cast<int>(WindowState::kNormal) ||
      *number > static_cast<int>(WindowState::kMaximised)) {
    return std::nullopt;
  }
  return static_cast<WindowState>(*number);
}

}  // namespace

TwipScreen ScreenOf(const PlacedWindow& window) {
  const std::vector<TwipScreen> screens = window.Screens();
  const TwipScreen* shown = ScreenShowing(window.Position(), window.Size(), screens);
  return shown != nullptr ? *shown : screens.front();
}

void SaveWindowPos(const PlacedWindow& window, HostRegistry& registry, std::string_view section) {
  if (window.State() != WindowState::kNormal) return;
  const auto [left, top] = window.Position();
  const auto [width, height] = window.Size();
  registry.Write(section, kLeftValue, std::to_string(left));
  registry.Write(section, kTopValue, std::to_string(top));
  registry.Write(section, kWidthValue, std::to_string(width));
  registry.Write(section, kHeightValue, std::to_string(height));
}

bool RestoreWindowPos(PlacedWindow& window, HostRegistry& registry, std::string_view section) {
  if (const auto state = ReadState(registry, section)) window.SetState(*state);
  if (window.State() != WindowState::kNormal) return true;
  const int left = ReadNumber(registry, section, kLeftValue).value_or(kNothingSaved);
  if (left == kNothingSaved) return false;
  const int top = ReadNumber(registry, section, kTopValue).value_or(window.Position().top);
  const TwipPoint saved = {left, top};
  window.MoveTo(saved);
  const std::vector<TwipScreen> screens = window.Screens();
  const TwipScreen* screen = ScreenShowing(saved, window.Size(), screens);
  return screen != nullptr && IsReachable(saved, window.Size(), *screen);
}

}  // namespace orvane
