#include "app/field_splitter.h"

namespace orvane {

std::string GetField(std::string_view text, int index, std::string_view separator) {
  std::size_t start = 0;
  for (int field = 1; index > 0; ++field) {
    const auto end = text.find(separator, start);
    if (field == index) return std::string(text.substr(start, end - start));
    if (end == std::string_view::npos) break;
    start = end + separator.size();
  }
  return std::string(kPipeEnd);
}

}  // namespace orvane
