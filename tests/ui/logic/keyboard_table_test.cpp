#include "ui/logic/keyboard_table.h"

#include <gtest/gtest.h>

#include <string>

namespace orvane {
namespace {

using Kind = KeyAction::Kind;

TEST(KeyboardTable, MapsDigitKeysOfBothBlocksToTheirButtons) {
  for (int digit = 0; digit <= 9; ++digit) {
    SCOPED_TRACE(digit);
    const KeyAction expected{Kind::kAppend, static_cast<char>('0' + digit), digit};
    EXPECT_EQ(KeyActionFor('0' + digit), expected);
    EXPECT_EQ(KeyActionFor(96 + digit), expected);
  }
}

TEST(KeyboardTable, MapsTheOtherKeys) {
  struct Case {
    int key;
    KeyAction action;
  };
  const Case cases[] = {
      {106, {Kind::kAppend, '*', 10}},
      {187, {Kind::kAppend, '*', 10}},
      {42, {Kind::kAppend, '*', 10}},
      {191, {Kind::kAppend, '#', 11}},
      {111, {Kind::kAppend, '#', 11}},
      {107, {Kind::kAppend, '#', 11}},
      {110, {Kind::kAppend, '#', 11}},
      {35, {Kind::kAppend, '#', 11}},
      {32, {Kind::kAppend, ' ', -1}},
      {8, {Kind::kRemoveLast, '\0', -1}},
      {13, {}},
      {9, {}},
      {65, {}},
      {58, {}},
      {47, {}},
      {109, {}},
      {0, {}},
      {-1, {}},
  };
  for (const auto& [key, action] : cases) {
    SCOPED_TRACE(key);
    EXPECT_EQ(KeyActionFor(key), action);
  }
}

}  // namespace
}  // namespace orvane
