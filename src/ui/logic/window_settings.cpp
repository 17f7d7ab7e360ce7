#include "ui/logic/window_settings.h"

#include <charconv>
#include <optional>
#include <string>

#include "app/host_settings.h"
#include "platform/errors.h"

namespace orvane {
namespace {

std::optional<int> ReadNumber(HostRegistry& registry, const NumberSetting& setting) {
  try {
    const std::string text = Stored(registry, setting).value_or("");
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return number;
  } catch (const RegistryError&) {
    return std::nullopt;
  }
}

std::optional<WindowState> ReadState(HostRegistry& registry) {
  const std::optional<int> number = ReadNumber(registry, setting::kWindowState);
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

void SaveWindowPos(const PlacedWindow& window, HostRegistry& registry) {
  if (window.State() != WindowState::kNormal) return;
  const auto [left, top] = window.Position();
  const auto [width, height] = window.Size();
  Store(registry, setting::kLeft, std::to_string(left));
  Store(registry, setting::kTop, std::to_string(top));
  Store(registry, setting::kWidth, std::to_string(width));
  Store(registry, setting::kHeight, std::to_string(height));
}

bool RestoreWindowPos(PlacedWindow& window, HostRegistry& registry) {
  if (const auto state = ReadState(registry)) window.SetState(*state);
  if (window.State() != WindowState::kNormal) return true;
  const int left = ReadNumber(registry, setting::kLeft).value_or(setting::kLeft.fallback);
  if (left == setting::kLeft.fallback) return false;
  const int top = ReadNumber(registry, setting::kTop).value_or(window.Position().top);
  const TwipPoint saved = {left, top};
  window.MoveTo(saved);
  const std::vector<TwipScreen> screens = window.Screens();
  const TwipScreen* screen = ScreenShowing(saved, window.Size(), screens);
  return screen != nullptr && IsReachable(saved, window.Size(), *screen);
}

}  // namespace orvane
