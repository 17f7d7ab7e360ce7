#include "platform/text/file_replacement.h"

#include <fstream>
#include <system_error>

#include "platform/errors.h"
#include "platform/system/file_flush.h"
#include "platform/text/native_path.h"

namespace orvane {
namespace {

// What a link leads to is replaced, not the link.
std::filesystem::path FileBehind(const std::filesystem::path& path) {
  std::error_code error;
  const std::filesystem::path real = std::filesystem::canonical(path, error);
  return error ? path : real;
}

}  // namespace

FileReplacement::FileReplacement(const std::string& path, std::string_view bytes)
    : path_(path), file_(FileBehind(NativePath(path))), written_(file_) {
  written_ += ".neu";
  std::error_code error;
  // A file that is protected against writing is not to be replaced either.
  if (std::filesystem::exists(file_, error) && !std::ofstream(file_, std::ios::app)) {
    throw PathAccessError(path_);
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
  // After a power cut the file must hold the old content or the new one, so the new one has to be
  // on the disk before it takes the old one's place.
  if (!stream || !FlushToDisk(written_)) throw PathAccessError(path_);
  std::error_code ignored;
  const auto status = std::filesystem::status(file_, ignored);
  if (std::filesystem::exists(status)) {
    std::filesystem::permissions(written_, status.permissions(), ignored);
  }
}

void FileReplacement::Commit() {
  std::error_code error;
  std::filesystem::rename(written_, file_, error);
  if (error) throw PathAccessError(path_);
  written_.clear();
}

}  // namespace orvane
