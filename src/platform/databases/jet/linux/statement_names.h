#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orvane {

// What a statement in the Jet dialect can be about.
struct StatementNames {
  std::vector<std::string> all;       // every word that may be a table or a column; "*" for all
  std::vector<std::string> compared;  // those that are compared with something
};

// Throws DatabaseError kDbErrorSyntax when the statement is none.
StatementNames NamesIn(std::string_view sql);

}  // namespace orvane
