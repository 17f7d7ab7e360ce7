#include "platform/text/native_path.h"

#include <cstddef>
#include <optional>
#include <string>
#include <system_error>

#include "platform/text/text_tools.h"

namespace orvane {
namespace {

// The entry of `folder` that `part` means when the letter case does not count. Of several the one
// that sorts first, so the answer does not depend on the order of the directory.
std::optional<std::string> FindInAnyCase(const std::filesystem::path& folder,
                                         const std::string& part) {
  const std::string wanted = LowerLatin(part);
  std::optional<std::string> found;
  std::error_code error;
  std::filesystem::directory_iterator entry(folder, error);
  for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
    std::string name = entry->path().filename().string();
    if (LowerLatin(name) == wanted && (!found || name < *found)) found = std::move(name);
  }
  return found;
}

bool IsSeparator(char c) {
  return c == '\\' || c == '/';
}

}  // namespace

std::filesystem::path NativePath(std::string_view path) {
  std::filesystem::path native;
  if (!path.empty() && IsSeparator(path.front())) native = "/";
  bool exists = true;
  std::size_t begin = 0;
  while (begin < path.size()) {
    std::size_t end = begin;
    while (end < path.size() && !IsSeparator(path[end])) ++end;
    std::string part(path.substr(begin, end - begin));
    begin = end + 1;
    if (part.empty()) continue;
    std::error_code error;
    if (exists && !std::filesystem::exists(native / part, error)) {
      const auto other = FindInAnyCase(native.empty() ? "." : native, part);
      exists = other.has_value();
      if (other) part = *other;
    }
    native /= part;
  }
  if (!path.empty() && IsSeparator(path.back())) native /= "";
  return native;
}

}  // namespace orvane
