#include "platform/serial/port_rules.h"

#include "platform/serial/serial_errors.h"
#include "platform/serial_control.h"

namespace orvane {

int ChangedCommPort(int current, int wanted, bool open) {
  if (wanted == current) return current;
  if (open) throw MakeSerialError(kSerialInvalidOpenPort);
  if (wanted < 1 || wanted > kSerialMaxPort) throw MakeSerialError(kSerialInvalidPort);
  return wanted;
}

}  // namespace orvane
