#include "platform/lines/line_service_provider.h"

#include "platform/lines/line_errors.h"

namespace orvane {

void LineServiceProvider::ShowDialog(int /*line*/, LineDialog /*dialog*/,
                                     std::uintptr_t /*owner*/) {
  throw MakeLineError(kLineErrorOperationUnavailable);
}

}  // namespace orvane
