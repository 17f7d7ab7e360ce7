#include "platform/text/native_path.h"

namespace orvane {

std::filesystem::path NativePath(std::string_view path) {
  const auto* first = reinterpret_cast<const char8_t*>(path.data());
  return std::filesystem::path(first, first + path.size()).make_preferred();
}

}  // namespace orvane
