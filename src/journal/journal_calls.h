#pragma once

#include <optional>
#include <string>
#include <vector>

#include "app/program_state.h"
#include "platform/prompts.h"

namespace orvane {

// A call as the journal holds it; texts are UTF-8, empty where there is none.
struct JournalCall {
  // Days since 1899-12-30, to the second; nothing when the row has no time or an impossible one.
  std::optional<double> time;
  bool external = false;
  std::string number;
  std::string company;
  std::string place;
  std::string person;
};

// The rows of a query for `Zeit`, `Ext`, `Nr`, `Firma`, `Ort` and `Person`, in the journal's order.
// None, after a message box, when the journal cannot be opened; those before the failure when
// reading fails.
std::vector<JournalCall> ReadJournalCalls(Prompts& prompts, ProgramState& state,
                                          const std::string& query);

}  // namespace orvane
