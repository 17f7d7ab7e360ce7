#pragma once

#include "app/program_state.h"
#include "platform/database.h"

namespace orvane {

// A journal file of more bytes is compacted after the call.
inline constexpr std::uintmax_t kJournalCompactAboveBytes = 9999999;

// Whether the user's journal file has grown too large.
bool JournalIsLarge(const ProgramState& state);

// Replaces the journal file by a compact copy and keeps the previous one as "TelList.OLD". Leaves
// everything as it is when no copy can be made; reports nothing.
void CompactTelList(DatabaseServices& databases, const ProgramState& state);

}  // namespace orvane
