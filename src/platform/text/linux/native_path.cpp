#include "platform/text/native_path.h"

#include <cstddef>
#include <optional>
#include <string>
#include <system_error>

namespace orvane {
namespace {

// Lower case of ASCII and of the Latin letters that German and its neighbours use in file names.
std::string Folded(std::string_view utf8) {
  std::string folded(utf8);
  for (std::size_t i = 0; i < folded.size(); ++i) {
    const auto byte = static_cast<unsigned char>(folded[i]);
    if (byte >= 'A' && byte <= 'Z') folded[i] = static_cast<char>(byte + 0x20);
    // U+00C0 to U+00DE are 0xC3 0x80 to 0xC3 0x9E in UTF-8; 0x97 is the multiplication sign.
    const bool afterC3 = i > 0 && static_cast<unsigned char>(folded[i - 1]) == 0xC3;
    if (afterC3 && byte >= 0x80 && byte <= 0x9E && byte != 0x97) {
      folded[i] = static_cast<char>(byte + 0x20);
    }
  }
  return folded;
}

// The entry of `folder` that `part` means when the letter case does not count. Of several the one
// that sorts first, so the answer does not depend on the order of the directory.
std::optional<std::string> FindInAnyCase(const std::filesystem::path& folder,
                                         const std::string& part) {
  const std::string wanted = Folded(part);
  std::optional<std::string> found;
  std::error_code error;
  std::filesystem::directory_iterator entry(folder, error);
  for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
    std::string name = entry->path().filename().string();
    if (Folded(name) == wanted && (!found || name < *found)) found = std::move(name);
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
