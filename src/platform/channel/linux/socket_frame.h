#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/host_channel.h"

namespace orvane {

// One message on a connection between two windows: three numbers in the machine's byte order, then
// the bytes up to the end of the stream.
enum class FrameKind : std::uint32_t { kCopyData = 1, kBringToFront = 2 };

struct Frame {
  FrameKind kind = FrameKind::kCopyData;
  CopyData data;
};

std::string EncodeFrame(FrameKind kind, const CopyData& data);

// Collects a message as it arrives; of long ones only what the receiver's buffer holds.
class FrameReader {
 public:
  // False when the message has become so long that it is not worth waiting for its end.
  bool Append(std::string_view bytes);
  // The message, after its last byte. Nothing when it was too short or of no known kind.
  std::optional<Frame> Finish() const;

 private:
  std::string kept_;
  std::size_t received_ = 0;
};

}  // namespace orvane
