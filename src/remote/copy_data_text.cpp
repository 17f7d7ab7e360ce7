#include "remote/copy_data_text.h"

#include <algorithm>

#include "platform/text/ansi.h"

namespace orvane {

CopyData MakeCopyData(const std::string& text) {
  std::string bytes = EncodeAnsi(text).substr(0, kCopyDataBufferBytes - 1);
  bytes.push_back('\0');
  return {kCopyDataTag, static_cast<std::uint32_t>(bytes.size()), std::move(bytes)};
}

std::optional<std::string> CopyDataText(const CopyData& data) {
  if (data.tag != kCopyDataTag) return std::nullopt;
  const std::size_t claimed = std::min<std::size_t>(data.byteCount, kCopyDataBufferBytes);
  const std::string bytes = data.bytes.substr(0, claimed);
  return DecodeAnsi(std::string_view(bytes).substr(0, bytes.find('\0')));
}

}  // namespace orvane
