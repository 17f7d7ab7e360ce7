#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/databases/dialect/jet_tokens.h"

namespace orvane {

// The order of a query that states none. Which rows the program then takes first must not depend on
// the engine, so it is:
//   with TOP: the largest first column first, which are the newest calls of a query for their
//   times; of a join: by the selected keys, the columns whose names end in "ID"; of one table by a
//   list of values alone: the longest value first, so the longest prefix.
// `lengthFunction` is what the engine calls a text's length. The result begins with a blank, and is
// empty when the query has an order of its own or none of the three shapes.
std::string ImpliedOrder(const std::vector<JetToken>& query, bool hasTop,
                         std::string_view lengthFunction);

// The same query so that SQLite finds its rows through indexes, when it is a join of two tables by
// a key with a condition that compares columns of both, joined by OR. SQLite by itself reads the
// whole tables for that. Each half of the condition is looked up in its own table, and the pairs of
// row numbers that were found lead to the rows: the same rows, none twice and none left out.
std::optional<std::vector<JetToken>> IndexedJoin(const std::vector<JetToken>& query);

// The same for a server, which has no row numbers: first the rows that the left table's half of the
// condition finds, then those that only the right one's does.
std::optional<std::vector<JetToken>> SplitJoin(const std::vector<JetToken>& query);

}  // namespace orvane
