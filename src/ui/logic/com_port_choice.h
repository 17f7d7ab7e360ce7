#pragma once

#include <set>
#include <string>
#include <vector>

namespace orvane {

// Serial ports that can be chosen: COM1 to COM8.
inline constexpr int kComPortChoices = 8;

// The ports among those that the system names ("COM3"); others and higher ones are left out.
std::set<int> ChoosableComPorts(const std::vector<std::string>& names);

}  // namespace orvane
