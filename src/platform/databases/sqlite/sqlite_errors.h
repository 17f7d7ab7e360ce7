#pragma once

#include <string>

#include "platform/errors.h"

namespace orvane {

// What every engine reports for a result code of an open file; `extended` is the code with its
// details, `shownPath` the path as the program composed it.
DatabaseError SqliteError(int extended, const std::string& shownPath);

}  // namespace orvane
