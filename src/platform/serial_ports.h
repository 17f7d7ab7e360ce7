#pragma once

#include <functional>
#include <string>
#include <vector>

namespace orvane {

// Lists the serial ports that the machine has now: the texts of the system's device map, such as
// "COM3", in its order. No ports is not a failure. Throws RegistryError when the list cannot be
// read.
using SerialPortLister = std::function<std::vector<std::string>()>;

}  // namespace orvane
