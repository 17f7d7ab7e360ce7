#include "platform/desktop/windows/session_end.h"

#include <windows.h>

#include <QCoreApplication>
#include <utility>

namespace orvane {

SessionEnd::SessionEnd() {
  QCoreApplication::instance()->installNativeEventFilter(this);
}

SessionEnd::~SessionEnd() {
  QCoreApplication::instance()->removeNativeEventFilter(this);
}

// Each window of the program hears of it; the first one counts.
bool SessionEnd::nativeEventFilter(const QByteArray& /*type*/, void* message, qintptr* /*result*/) {
  const auto& heard = *static_cast<const MSG*>(message);
  if (heard.message != WM_ENDSESSION || heard.wParam == FALSE) return false;
  if (const auto handler = std::exchange(handler_, nullptr)) handler(When::kAtOnce);
  return false;
}

}  // namespace orvane
