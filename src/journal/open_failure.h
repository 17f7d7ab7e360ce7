#pragma once

#include <string>

#include "platform/errors.h"
#include "platform/prompts.h"

namespace orvane {

// Tells the user that a database could not be opened. `intro` leads the text unless the failure is
// one of reaching or logging in to the database, which has texts of its own; `procedure` names the
// place in the title.
void ShowOpenFailure(Prompts& prompts, const PlatformError& error, const std::string& procedure,
                     const std::string& intro);

}  // namespace orvane
