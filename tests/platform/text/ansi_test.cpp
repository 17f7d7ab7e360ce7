#include "platform/text/ansi.h"

#include <gtest/gtest.h>

#include <utility>

namespace orvane {

TEST(Ansi, EveryByteSurvivesDecodingAndEncoding) {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  EXPECT_EQ(EncodeAnsi(DecodeAnsi(bytes)), bytes);
}

TEST(Ansi, EncodesTextAndReplacesWhatTheCodePageLacks) {
  // At the end: U+0080, whose byte means the euro sign, then cut off, overlong, surrogate, beyond.
  constexpr std::pair<std::string_view, std::string_view> kCases[] = {
      {"Wählen", "W\xE4hlen"},    {"10 €", "10 \x80"},
      {"„Ÿ“", "\x84\x9F\x93"},    {"¿ÿ", "\xBF\xFF"},
      {{"a\0b", 3}, {"a\0b", 3}}, {"Łń 😀", "?? ?"},
      {"\xC2\x80", "?"},          {"\xC3", "?"},
      {"a\xE2\x82z", "a??z"},     {"\xC0\xAF", "??"},
      {"\xED\xA0\x80", "???"},    {"\xF4\x90\x80\x80", "????"}};
  for (const auto& [utf8, ansi] : kCases) EXPECT_EQ(EncodeAnsi(utf8), ansi) << utf8;
}

}  // namespace orvane
