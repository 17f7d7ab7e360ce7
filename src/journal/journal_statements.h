#pragma once

#include <cstdint>
#include <string>

#include "journal/journal_entry.h"

namespace orvane {

// Calls that the journal keeps in each direction.
inline constexpr int kJournalRows = 600;

// The call with the texts that are stored where it has none of its own.
NewCall WithStoredTexts(NewCall call);

// The journal's statements. Texts go into them as they are: an apostrophe ends a text, and what the
// database then refuses is not stored.
std::string MaxIdStatement(CallDirection direction);
std::string InsertStatement(const NewCall& call, std::int64_t id);
// Leaves the newest calls, when the newest is `id`.
std::string TrimStatement(CallDirection direction, std::int64_t id);
std::string UpdateStatement(const EndedCall& call);
std::string DurationsStatement(CallDirection direction);

}  // namespace orvane
