#include "platform/ansi.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace orvane {
namespace {

using std::string_view_literals::operator""sv;

TEST(Ansi, EveryByteSurvivesDecodingAndEncoding) {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  EXPECT_EQ(EncodeAnsi(DecodeAnsi(bytes)), bytes);
}

TEST(Ansi, EncodesTextAndReplacesWhatTheCodePageLacks) {
  struct Case {
    std::string_view utf8;
    std::string_view ansi;
  };
  const Case cases[] = {
      {"Wählen", "W\xE4hlen"},
      {"10 €", "10 \x80"},
      {"„Ÿ“", "\x84\x9F\x93"},
      {"¿ÿ", "\xBF\xFF"},
      {"a\0b"sv, "a\0b"sv},
      {"Łódź 😀",
       "?\xF3"
       "d? ?"},
      {"\xC2\x80", "?"},             // U+0080 has no place: its byte means the euro sign
      {"\xC3", "?"},                 // cut off
      {"a\xE2\x82z", "a??z"},        // cut off in the middle
      {"\xC0\xAF", "??"},            // overlong
      {"\xED\xA0\x80", "???"},       // a surrogate
      {"\xF4\x90\x80\x80", "????"},  // beyond Unicode
      {"\xE0\x80\xAF", "???"},
      {"\xFF\xE4", "??"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.utf8);
    EXPECT_EQ(EncodeAnsi(c.utf8), c.ansi);
  }
}

}  // namespace
}  // namespace orvane
