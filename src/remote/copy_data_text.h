#pragma once

#include <optional>
#include <string>

#include "platform/host_channel.h"

namespace orvane {

// The only tag that programs of the suite send and accept.
inline constexpr std::uint32_t kCopyDataTag = 3;

// The record for a text: ANSI with a closing zero, cut to the channel's buffer.
CopyData MakeCopyData(const std::string& text);

// The text of a received record, UTF-8, cut before the first zero; nothing when the tag is foreign.
std::optional<std::string> CopyDataText(const CopyData& data);

}  // namespace orvane
