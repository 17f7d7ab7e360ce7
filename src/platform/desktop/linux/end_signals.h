#pragma once

#include <QSocketNotifier>
#include <functional>
#include <memory>

#include "platform/end_requests.h"
#include "platform/system/linux/file_descriptor.h"

namespace orvane {

// SIGTERM, SIGHUP and SIGINT, those that whoever started the program has not switched off. One
// object at a time.
class EndSignals : public EndRequests {
 public:
  EndSignals();
  ~EndSignals() override;
  EndSignals(const EndSignals&) = delete;
  EndSignals& operator=(const EndSignals&) = delete;

  void SetHandler(std::function<void(When)> handler) override { handler_ = std::move(handler); }

 private:
  void OnSignal();

  FileDescriptor reading_;
  std::unique_ptr<QSocketNotifier> notifier_;
  std::function<void(When)> handler_;
};

}  // namespace orvane
