#include "platform/lines/linux/netstring.h"

#include <gtest/gtest.h>

#include <vector>

namespace orvane {
namespace {

constexpr std::size_t kLimit = 20;

// All payloads that come out when the bytes arrive in pieces of `step`.
std::vector<std::string> Decode(NetstringDecoder& decoder, std::string_view bytes,
                                std::size_t step) {
  std::vector<std::string> payloads;
  for (std::size_t at = 0; at < bytes.size(); at += step) {
    decoder.Add(bytes.substr(at, step));
    while (auto payload = decoder.Next()) payloads.push_back(*payload);
  }
  return payloads;
}

TEST(NetstringTest, ComesOutAsItWentInHoweverItIsSplit) {
  const std::vector<std::string> payloads{"hallo", "", "1:a,", std::string("a\0b", 3),
                                          std::string(kLimit, 'x')};
  std::string stream;
  for (const auto& payload : payloads) stream += EncodeNetstring(payload);
  EXPECT_TRUE(stream.starts_with("5:hallo,0:,4:1:a,,"));
  for (const std::size_t step : {std::size_t{1}, std::size_t{2}, std::size_t{7}, stream.size()}) {
    SCOPED_TRACE(step);
    NetstringDecoder decoder(kLimit);
    EXPECT_EQ(Decode(decoder, stream, step), payloads);
    EXPECT_FALSE(decoder.Failed());
  }
}

TEST(NetstringTest, EndsWithTheFirstError) {
  for (const char* broken : {"x", ":a,", "-1:a,", "1 :a,", "1:ab", "01:a,", "00:,", "21:", "210",
                             "99999999999999999999999999"}) {
    for (const std::size_t step : {std::size_t{1}, std::size_t{100}}) {
      SCOPED_TRACE(broken);
      NetstringDecoder decoder(kLimit);
      EXPECT_EQ(Decode(decoder, "2:ok," + std::string(broken), step),
                std::vector<std::string>{"ok"});
      EXPECT_TRUE(decoder.Failed());
      EXPECT_TRUE(Decode(decoder, "2:ok,", step).empty());
    }
  }
}

}  // namespace
}  // namespace orvane
