#pragma once

#include <string>

#include "platform/database.h"
#include "platform/support_log.h"

namespace orvane {

// Takes back a journal that an earlier version of the program left under another name, when it was
// ended in the middle of replacing the file. `userPath` as HostEnvironment has it. Of several files
// the one with the newest calls; nothing where the journal is there or no file is whole.
void HealJournal(const std::string& userPath, DatabaseServices& databases, SupportLog& log);

}  // namespace orvane
