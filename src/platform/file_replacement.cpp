#include "platform/file_replacement.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <fcntl.h>
#include <unistd.h>
#endif

#include <fstream>
#include <system_error>

#include "platform/errors.h"
#include "platform/native_path.h"

namespace orvane {
namespace {

constexpr std::int32_t kErrorPathAccess = 75;

// After a power cut the file must hold the old content or the new one, so the new one has to be on
// the disk before it takes the old one's place.
bool FlushToDisk(const std::filesystem::path& file) {
#ifdef _WIN32
  const HANDLE handle = CreateFileW(file.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
  if (handle == INVALID_HANDLE_VALUE) return false;
  const bool flushed = FlushFileBuffers(handle) != 0;
  CloseHandle(handle);
#else
  const int handle = open(file.c_str(), O_WRONLY | O_CLOEXEC);
  if (handle < 0) return false;
  const bool flushed = fsync(handle) == 0;
  close(handle);
#endif
  return flushed;
}

// What a link leads to is replaced, not the link.
std::filesystem::path FileBehind(const std::filesystem::path& path) {
  std::error_code error;
  const std::filesystem::path real = std::filesystem::canonical(path, error);
  return error ? path : real;
}

[[noreturn]] void ThrowNoAccess(const std::string& path) {
  throw PlatformError(kErrorPathAccess, "Fehler beim Zugriff auf Pfad/Datei '" + path + "'");
}

}  // namespace

FileReplacement::FileReplacement(const std::string& path, std::string_view bytes)
    : path_(path), file_(FileBehind(NativePath(path))), written_(file_) {
  written_ += ".neu";
  std::error_code error;
  // A file that is protected against writing is not to be replaced either.
  if (std::filesystem::exists(file_, error) && !std::ofstream(file_, std::ios::app)) {
    ThrowNoAccess(path_);
  }
  try {
    Write(bytes);
  } catch (const PlatformError&) {
    std::filesystem::remove(written_, error);
    throw;
  }
}

FileReplacement::~FileReplacement() {
  std::error_code error;
  if (!written_.empty()) std::filesystem::remove(written_, error);
}

void FileReplacement::Write(std::string_view bytes) const {
  std::ofstream stream(written_, std::ios::binary | std::ios::trunc);
  stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  stream.close();
  if (!stream || !FlushToDisk(written_)) ThrowNoAccess(path_);
  std::error_code ignored;
  const auto status = std::filesystem::status(file_, ignored);
  if (std::filesystem::exists(status)) {
    std::filesystem::permissions(written_, status.permissions(), ignored);
  }
}

void FileReplacement::Commit() {
  std::error_code error;
  std::filesystem::rename(written_, file_, error);
  if (error) ThrowNoAccess(path_);
  written_.clear();
}

}  // namespace orvane
