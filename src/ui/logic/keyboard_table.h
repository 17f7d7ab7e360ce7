#pragma once

namespace orvane {

inline constexpr int kKeyBackspace = 8;
inline constexpr int kKeyEnter = 13;

inline constexpr int kKeypadStar = 10;
inline constexpr int kKeypadHash = 11;
inline constexpr int kNoKeypadButton = -1;

// What a key does to the number field while the focus is outside of it.
struct KeyAction {
  enum class Kind { kNone, kAppend, kRemoveLast };
  Kind kind = Kind::kNone;
  char character = '\0';
  // The keypad button that lights up: a digit, kKeypadStar, kKeypadHash or kNoKeypadButton.
  int keypadButton = kNoKeypadButton;

  bool operator==(const KeyAction&) const = default;
};

// The action for a virtual key code. The table is coarse on purpose and looks at no modifier, so it
// takes the key codes of "*" and "#" on German keyboards, and code 35 whatever key sends it.
KeyAction KeyActionFor(int virtualKey);

}  // namespace orvane
