#include "ui/logic/keyboard_table.h"

namespace orvane {
namespace {

constexpr int kNumpad0 = 96;
constexpr int kNumpad9 = 105;
constexpr int kNumpadMultiply = 106;
constexpr int kNumpadAdd = 107;
constexpr int kNumpadDecimal = 110;
constexpr int kNumpadDivide = 111;
constexpr int kPlusKey = 187;
constexpr int kHashKey = 191;

int MappedCode(int virtualKey) {
  if (virtualKey >= kNumpad0 && virtualKey <= kNumpad9) return virtualKey - kNumpad0 + '0';
  switch (virtualKey) {
    case kNumpadMultiply:
    case kPlusKey:
      return '*';
    case kHashKey:
    case kNumpadDivide:
    case kNumpadAdd:
    case kNumpadDecimal:
      return '#';
    default:
      return virtualKey;
  }
}

}  // namespace

KeyAction KeyActionFor(int virtualKey) {
  using Kind = KeyAction::Kind;
  const int code = MappedCode(virtualKey);
  if (code >= '0' && code <= '9') return {Kind::kAppend, static_cast<char>(code), code - '0'};
  switch (code) {
    case '*':
      return {Kind::kAppend, '*', kKeypadStar};
    case '#':
      return {Kind::kAppend, '#', kKeypadHash};
    case ' ':
      return {Kind::kAppend, ' ', kNoKeypadButton};
    case kKeyBackspace:
      return {Kind::kRemoveLast, '\0', kNoKeypadButton};
    default:
      return {};
  }
}

}  // namespace orvane
