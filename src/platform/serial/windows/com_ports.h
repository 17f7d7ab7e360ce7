#pragma once

#include <string>
#include <vector>

namespace orvane {

// The names of the machine's serial ports, such as "COM3", in the order in which the system lists
// them. None when it lists none; throws RegistryError when the list cannot be read.
std::vector<std::string> SerialPortNames();

}  // namespace orvane
