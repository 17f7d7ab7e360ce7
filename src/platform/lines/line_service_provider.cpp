#include "platform/lines/line_service_provider.h"

#include "platform/errors.h"

namespace orvane {

void LineServiceProvider::ShowDialog(int /*line*/, LineDialog /*dialog*/,
                                     std::uintptr_t /*owner*/) {
  throw TapiError(kLineErrorOperationUnavailable, "Diese Leitung hat keinen solchen Dialog.");
}

}  // namespace orvane
