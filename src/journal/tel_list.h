#pragma once

#include <cstdint>
#include <string>

#include "app/program_state.h"
#include "platform/prompts.h"

namespace orvane {

// The journal's file under the user's folder, and its database password.
inline constexpr const char* kJournalFile = "res\\TelList.fdb";
inline constexpr const char* kJournalPassword = "vnar";

// Calls that the journal keeps in each direction.
inline constexpr int kJournalRows = 600;

enum class JournalUse { kWrite, kRead };

// Makes sure that the journal connection is open. False, after a message box, when it cannot be.
// Who only reads also gets a journal that cannot be written to, because it or its folder is
// protected, the disk is full or another program is writing, and does not wait for that program.
// Throws std::logic_error when there is no connection object to write with.
bool ReopenTelDB(Prompts& prompts, ProgramState& state, JournalUse use = JournalUse::kWrite);

// Inserts a call ("1" to "4": outgoing external, outgoing internal, incoming external, incoming
// internal) or completes the rows that began at `startText` ("o" outgoing, "i" incoming). Times are
// "mm/dd/yyyy hh:nn:ss". An insert code is overwritten with its table's letter; company, place and
// person are set to what was stored where the caller had nothing. The texts go into the statement
// as they are; a statement that fails leaves the journal as it was, silently.
void TelList(Prompts& prompts, ProgramState& state, std::string& kind, const std::string& startText,
             const std::string& newTimeText, const std::string& duration, const std::string& number,
             std::string& company, std::string& place, std::string& person, std::int32_t addressKey,
             std::int32_t personKey);

}  // namespace orvane
