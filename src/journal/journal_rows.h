#pragma once

#include <vector>

#include "journal/journal_entry.h"
#include "platform/database.h"

namespace orvane {

// The calls of a result with `Zeit`, `Ext`, `Nr`, `Firma`, `Ort` and `Person`, in its order; those
// before the failure when reading fails.
std::vector<JournalCall> JournalCallsOf(Recordset& rows);

// The durations of a result with `Zeit`, `Nr` and `Dauer`, alike.
std::vector<JournalDuration> JournalDurationsOf(Recordset& rows);

}  // namespace orvane
