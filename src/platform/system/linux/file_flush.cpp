#include "platform/system/file_flush.h"

#include <fcntl.h>
#include <unistd.h>

#include "platform/system/linux/file_descriptor.h"

namespace orvane {

bool FlushToDisk(const std::filesystem::path& file) {
  const FileDescriptor opened(open(file.c_str(), O_WRONLY | O_CLOEXEC));
  return opened.Valid() && fsync(opened.Get()) == 0;
}

}  // namespace orvane
