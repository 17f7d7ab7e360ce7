#include "platform/system/file_flush.h"

#include "platform/system/windows/system_handle.h"

namespace orvane {

bool FlushToDisk(const std::filesystem::path& file) {
  const SystemHandle opened(CreateFileW(file.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                                        FILE_ATTRIBUTE_NORMAL, nullptr));
  return opened.Valid() && FlushFileBuffers(opened.Get()) != 0;
}

}  // namespace orvane
