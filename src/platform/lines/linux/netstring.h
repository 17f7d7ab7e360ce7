#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace orvane {

// "<length in bytes>:<bytes>,"
std::string EncodeNetstring(std::string_view payload);

// Cuts a stream of bytes into the netstrings it is made of, however the stream is split.
class NetstringDecoder {
 public:
  // Payloads of more than `limit` bytes are refused.
  explicit NetstringDecoder(std::size_t limit) : limit_(limit) {}

  // Takes the next bytes of the stream. After an error the stream cannot be read any further: what
  // follows is thrown away.
  void Add(std::string_view bytes);

  // The next complete payload, or nothing until more bytes are there.
  std::optional<std::string> Next();

  // The stream was no sequence of netstrings, or one was too long.
  bool Failed() const { return failed_; }

 private:
  // Reads "<length>:" at the start of what is left; false until it is complete.
  bool ReadLength();
  void Fail();

  std::size_t limit_;
  std::string rest_;
  std::optional<std::size_t> length_;
  bool failed_ = false;
};

}  // namespace orvane
