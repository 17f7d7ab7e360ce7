#pragma once

#include <cstdint>
#include <cstdio>
#include <string_view>

namespace orvane {

// Writes the items of jet_stream.h to standard output. A reader that has gone away ends the
// program.
class SnapshotWriter {
 public:
  void Byte(char byte) { Raw(&byte, 1); }
  void Text(std::string_view text);
  template <typename Number>
  void Value(Number number) {
    Raw(&number, sizeof number);
  }
  // Everything that was written is on its way.
  void Finish();

 private:
  static void Raw(const void* bytes, std::size_t count);
};

}  // namespace orvane
