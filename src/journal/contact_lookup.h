#pragma once

#include "app/program_state.h"
#include "journal/current_call.h"
#include "platform/prompts.h"

namespace orvane {

// Makes sure that the connection to the host's contact database is open: a server or the host's
// Jet file, whichever the host settings name. False, after a message box, when it cannot be.
bool ReopenDB(Prompts& prompts, ProgramState& state);

// Looks the current call's number up among the host's companies and persons and writes company,
// place, person and both keys. Changes nothing when the database cannot be opened.
void ResolveNumber(Prompts& prompts, ProgramState& state, CurrentCall& call);

// Looks the current call's number up among the extensions of the host's users; writes the same
// fields.
void ResolveExtension(Prompts& prompts, ProgramState& state, CurrentCall& call);

}  // namespace orvane
