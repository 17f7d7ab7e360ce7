#pragma once

namespace orvane {

// The port number after `wanted` was set, by the serial control's rules. Throws SerialError.
int ChangedCommPort(int current, int wanted, bool open);

}  // namespace orvane
