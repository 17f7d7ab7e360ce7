#include "ui/logic/keyboard_table.h"

#include <gtest/gtest.h>

namespace orvane {

TEST(KeyboardTable, MapsEachKeyToItsButton) {
  using Kind = KeyAction::Kind;
  for (int digit = 0; digit <= 9; ++digit) {
    const KeyAction expected{Kind::kAppend, static_cast<char>('0' + digit), digit};
    EXPECT_EQ(KeyActionFor('0' + digit), expected) << digit;
    EXPECT_EQ(KeyActionFor(96 + digit), expected) << digit;
  }
  for (const int key : {106, 187, 42}) {
    EXPECT_EQ(KeyActionFor(key), (KeyAction{Kind::kAppend, '*', 10})) << key;
  }
  for (const int key : {191, 111, 107, 110, 35}) {
    EXPECT_EQ(KeyActionFor(key), (KeyAction{Kind::kAppend, '#', 11})) << key;
  }
  EXPECT_EQ(KeyActionFor(32), (KeyAction{Kind::kAppend, ' ', -1}));
  EXPECT_EQ(KeyActionFor(8), (KeyAction{Kind::kRemoveLast, '\0', -1}));
  for (const int key : {13, 9, 65, 58, 47, 109, 0, -1}) {
    EXPECT_EQ(KeyActionFor(key), KeyAction{}) << key;
  }
}

}  // namespace orvane
