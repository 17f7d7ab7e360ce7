#pragma once

#include <QTcpSocket>
#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/event_loop.h"
#include "platform/lines/linux/baresip_messages.h"
#include "platform/lines/linux/netstring.h"

namespace orvane {

// The control connection to the user's running baresip. Keeps itself up: while started, a
// connection that is lost or never came about is tried again after a pause. A baresip that sends
// nonsense or does not answer counts as lost.
class BaresipControl {
 public:
  struct Settings {
    std::string host = "127.0.0.1";
    std::uint16_t port = 4444;
    std::chrono::milliseconds retry{3000};
    std::chrono::milliseconds answer{10000};
  };

  class Listener {
   public:
    virtual ~Listener() = default;
    virtual void OnControlUp() = 0;
    virtual void OnControlLost() = 0;
    virtual void OnEvent(const BaresipEvent& event) = 0;
  };

  struct Command {
    std::string name;
    std::string params;
  };
  using Answers = std::vector<BaresipResponse>;
  using Handler = std::function<void(const Answers&)>;

  // The listener outlives the control.
  BaresipControl(EventLoop& loop, Settings settings, Listener& listener);

  // Tries to connect at once if it has not; returns without waiting for it.
  void Start();
  // Nothing is heard any more, and what was not answered is forgotten.
  void Stop();
  bool Up() const { return up_; }

  // Sends the commands in one piece, so that baresip runs them without anything in between, and
  // hands over their answers, one each and in order. When the connection is lost before, the
  // handler is not called.
  void Send(const std::vector<Command>& commands, Handler handler);

  // Blocks, with nothing but this connection going on, until `done`, the end of `bound`, or the
  // loss of the connection.
  void Wait(std::chrono::milliseconds bound, const std::function<bool()>& done);

 private:
  // Commands that were sent together.
  struct Batch {
    std::size_t size = 0;
    Answers answers;
    Handler handler;
  };

  void Connect();
  void HandleConnected();
  void HandleError();
  void HandleBytes();
  void Handle(const BaresipResponse& response);
  void LimitAnswerTime();
  void Lose();
  void Disconnect();

  EventLoop& loop_;
  Settings settings_;
  Listener& listener_;
  QTcpSocket socket_;
  NetstringDecoder decoder_;
  std::deque<Batch> batches_;
  std::uint64_t lastToken_ = 0;
  std::uint64_t answeredToken_ = 0;
  std::unique_ptr<EventLoop::Timer> retry_;
  std::unique_ptr<EventLoop::Timer> answerLimit_;
  bool started_ = false;
  bool up_ = false;
};

}  // namespace orvane
