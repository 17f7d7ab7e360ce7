#include "platform/support/logged_channel.h"

#include <utility>

#include "platform/text/ansi.h"
#include "platform/text/stopwatch.h"

namespace orvane {
namespace {

// As far as the message's first zero; foreign records are messages only by their form.
std::string TextOf(const CopyData& data) {
  return DecodeAnsi(std::string_view(data.bytes).substr(0, data.bytes.find('\0')));
}

std::string RecordText(const CopyData& data) {
  return " (Kennung " + std::to_string(data.tag) + ", " + std::to_string(data.byteCount) +
         " Bytes)";
}

}  // namespace

bool LoggedChannel::SendCopyData(const PeerWindow& peer, const CopyData& data) {
  const Stopwatch watch;
  const bool handled = channel_.SendCopyData(peer, data);
  const std::string text = TextOf(data);
  log_.Tell(LogTopic::kHost, {"gesendet: ",
                              {LogPart::Kind::kMessage, text},
                              RecordText(data),
                              handled ? ", angenommen nach " : ", nicht angenommen nach ",
                              watch.Text()});
  return handled;
}

void LoggedChannel::Hook(std::uintptr_t window, const std::string& caption,
                         CopyDataHandler onCopyData, std::function<void()> onFront) {
  channel_.Hook(
      window, caption,
      [this, handler = std::move(onCopyData)](const CopyData& data, Handled handled) {
        const std::string text = TextOf(data);
        log_.Tell(LogTopic::kHost,
                  {"empfangen: ", {LogPart::Kind::kMessage, text}, RecordText(data)});
        handler(data, std::move(handled));
      },
      [this, front = std::move(onFront)] {
        log_.Tell(LogTopic::kHost, {"das Fenster soll nach vorn"});
        front();
      });
}

}  // namespace orvane
