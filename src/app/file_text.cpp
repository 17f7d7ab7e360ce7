#include "app/file_text.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

#include "platform/errors.h"
#include "platform/text/native_path.h"

namespace orvane {

std::string ReadWholeFile(const std::string& path) {
  const std::filesystem::path native = NativePath(path);
  std::error_code error;
  if (!std::filesystem::exists(native, error) && !error) return {};
  std::ifstream file(native, std::ios::binary);
  std::string bytes;
  if (file && std::filesystem::is_regular_file(native, error)) {
    bytes.assign(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    if (!file.bad()) return bytes;
  }
  throw PathAccessError(path);
}

bool FileExists(const std::string& path) {
  if (path.empty()) return false;
  std::error_code error;
  const std::filesystem::path native = NativePath(path);
  return std::filesystem::is_regular_file(native, error) && std::ifstream(native).is_open();
}

}  // namespace orvane
