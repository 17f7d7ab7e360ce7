#include "platform/channel/linux/socket_frame.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace orvane {
namespace {

using Header = std::array<std::uint32_t, 3>;  // kind, tag, byte count

constexpr std::size_t kKeptBytes = sizeof(Header) + kCopyDataBufferBytes;
constexpr std::size_t kLongestFrameBytes = 4UL * 1024 * 1024;

}  // namespace

std::string EncodeFrame(FrameKind kind, const CopyData& data) {
  const Header header{static_cast<std::uint32_t>(kind), data.tag, data.byteCount};
  std::string frame(sizeof header, '\0');
  std::memcpy(frame.data(), header.data(), sizeof header);
  return frame + data.bytes;
}

bool FrameReader::Append(std::string_view bytes) {
  received_ += bytes.size();
  kept_ += bytes.substr(0, std::min(bytes.size(), kKeptBytes - kept_.size()));
  return received_ <= kLongestFrameBytes;
}

std::optional<Frame> FrameReader::Finish() const {
  Header header{};
  if (kept_.size() < sizeof header) return std::nullopt;
  std::memcpy(header.data(), kept_.data(), sizeof header);
  const auto kind = static_cast<FrameKind>(header[0]);
  if (kind != FrameKind::kCopyData && kind != FrameKind::kBringToFront) return std::nullopt;
  return Frame{kind, {header[1], header[2], kept_.substr(sizeof header)}};
}

}  // namespace orvane
