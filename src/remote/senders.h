#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/host_channel.h"

namespace orvane {

// The dial window of the dialer that runs in this session; nothing when there is none.
std::optional<PeerWindow> FindDialWindow(HostChannel& channel);

// Hands the text to the dialer that already runs in this session and brings it to the front. Does
// nothing when none is found.
void SendToRunningInstance(HostChannel& channel, const std::string& text);

// Notifies the host's tray window with "TX:" + user number + "~" + text. Does nothing when there is
// none.
void SendToHost(HostChannel& channel, std::int32_t userNumber, const std::string& text);

}  // namespace orvane
