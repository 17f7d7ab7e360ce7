#pragma once

#include <QAbstractNativeEventFilter>
#include <functional>

#include "platform/end_requests.h"

namespace orvane {

// The end of the user's session: he logs off, or the machine shuts down. The toolkit agrees to it
// when the system asks.
class SessionEnd : public EndRequests, private QAbstractNativeEventFilter {
 public:
  SessionEnd();
  ~SessionEnd() override;
  SessionEnd(const SessionEnd&) = delete;
  SessionEnd& operator=(const SessionEnd&) = delete;

  void SetHandler(std::function<void(When)> handler) override { handler_ = std::move(handler); }

 private:
  bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;

  std::function<void(When)> handler_;
};

}  // namespace orvane
