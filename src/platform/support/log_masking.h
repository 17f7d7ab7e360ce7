#pragma once

#include <string>

#include "platform/support_log.h"

namespace orvane {

// The text of a part without what tells whom the user calls: of telephone numbers the last three
// digits stay, names of people and companies are left out.
std::string Masked(const LogPart& part);

}  // namespace orvane
