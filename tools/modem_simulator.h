#pragma once

#include <QSocketNotifier>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvane {

// A Hayes modem on a pseudo terminal, for demonstrations and tests. Runs on the Qt event loop.
class ModemSimulator {
 public:
  // Throws std::system_error when the system has no pseudo terminal left.
  ModemSimulator();
  ~ModemSimulator();
  ModemSimulator(const ModemSimulator&) = delete;
  ModemSimulator& operator=(const ModemSimulator&) = delete;

  // The device that the dialer opens.
  const std::string& SlavePath() const { return slavePath_; }

  // A modem that is switched off receives and logs, but never answers.
  void SetAnswering(bool answering) { answering_ = answering; }
  // How long after the dial command "CONNECT" comes; without a value it never comes.
  void SetConnectDelay(std::optional<std::chrono::milliseconds> delay) { connectDelay_ = delay; }
  // Called with each command line, without its carriage return.
  void SetCommandHandler(std::function<void(const std::string&)> handler) {
    onCommand_ = std::move(handler);
  }
  // All command lines so far.
  const std::vector<std::string>& Commands() const { return commands_; }

  // Pulls the cable; the dialer's side gets a device error.
  void Unplug();

 private:
  void Receive();
  void Execute(const std::string& command);
  void Reply(std::string_view text) const;

  std::string slavePath_;
  int master_ = -1;
  // Kept open: without a program on the other side the master would report an end over and over.
  int slave_ = -1;
  std::unique_ptr<QSocketNotifier> notifier_;
  std::string line_;
  bool answering_ = true;
  std::optional<std::chrono::milliseconds> connectDelay_;
  // Counts the calls; a connect that is due for an ended one does not come.
  unsigned call_ = 0;
  std::vector<std::string> commands_;
  std::function<void(const std::string&)> onCommand_;
};

}  // namespace orvane
