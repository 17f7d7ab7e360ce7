#include "remote/senders.h"

#include <functional>
#include <optional>
#include <string_view>

#include "app/host_paths.h"
#include "platform/text/text_tools.h"
#include "remote/command_channel.h"
#include "remote/copy_data_text.h"

namespace orvane {
namespace {

std::optional<PeerWindow> FindPeer(HostChannel& channel,
                                   const std::function<bool(const std::string&)>& accepts) {
  for (const PeerWindow& window : channel.Windows()) {
    if (!window.hasParent && accepts(window.caption)) return window;
  }
  return std::nullopt;
}

}  // namespace

std::optional<PeerWindow> FindDialWindow(HostChannel& channel) {
  return FindPeer(
      channel, [](const std::string& caption) { return caption.starts_with(kDialWindowCaption); });
}

void SendToRunningInstance(HostChannel& channel, const std::string& text) {
  const auto peer = FindDialWindow(channel);
  if (!peer) return;
  channel.SendCopyData(*peer, MakeCopyData(text));
  channel.BringToFront(*peer);
}

void SendToHost(HostChannel& channel, std::int32_t userNumber, const std::string& text) {
  const std::string trayName = "TALMIX_TRAY" + std::string(kHostVersion);
  const auto peer = FindPeer(channel, [&trayName](const std::string& caption) {
    return UpperAscii(caption).starts_with(trayName);
  });
  if (!peer) return;
  channel.SendCopyData(*peer, MakeCopyData("TX:" + std::to_string(userNumber) + "~" + text));
}

}  // namespace orvane
