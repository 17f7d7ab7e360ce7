#include "platform/lines/windows/tapi32_errors.h"

#include "platform/lines/line_errors.h"

namespace orvane {

std::int32_t Checked(std::int32_t result) {
  if (result < 0) throw MakeLineError(result);
  return result;
}

}  // namespace orvane
