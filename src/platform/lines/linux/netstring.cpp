#include "platform/lines/linux/netstring.h"

#include <algorithm>
#include <charconv>

namespace orvane {

std::string EncodeNetstring(std::string_view payload) {
  std::string text = std::to_string(payload.size());
  text.reserve(text.size() + payload.size() + 2);
  text += ':';
  text += payload;
  text += ',';
  return text;
}

void NetstringDecoder::Add(std::string_view bytes) {
  if (!failed_) rest_ += bytes;
}

std::optional<std::string> NetstringDecoder::Next() {
  if (failed_ || (!length_ && !ReadLength())) return std::nullopt;
  if (rest_.size() <= *length_) return std::nullopt;
  if (rest_[*length_] != ',') {
    Fail();
    return std::nullopt;
  }
  std::string payload = rest_.substr(0, *length_);
  rest_.erase(0, *length_ + 1);
  length_.reset();
  return payload;
}

bool NetstringDecoder::ReadLength() {
  const std::size_t digits = std::min(rest_.find_first_not_of("0123456789"), rest_.size());
  const bool complete = digits < rest_.size();
  const std::size_t longest = std::to_string(limit_).size();
  const bool leadingZero = digits > 1 && rest_[0] == '0';
  if (digits > longest || leadingZero || (complete && (digits == 0 || rest_[digits] != ':'))) {
    Fail();
    return false;
  }
  if (!complete) return false;
  std::size_t length = 0;
  std::from_chars(rest_.data(), rest_.data() + digits, length);
  if (length > limit_) {
    Fail();
    return false;
  }
  rest_.erase(0, digits + 1);
  length_ = length;
  return true;
}

void NetstringDecoder::Fail() {
  failed_ = true;
  rest_.clear();
  rest_.shrink_to_fit();
}

}  // namespace orvane
