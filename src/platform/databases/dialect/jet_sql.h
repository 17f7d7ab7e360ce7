#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orvane {

// A statement for SQLite. The n-th "?" of `sql` stands for the n-th number of `dates`: bound
// values, so that a date is the identical number however it gets into the database.
struct TranslatedStatement {
  std::string sql;
  // The same by way of the indexes, or empty. SQLite may refuse it for tables without row numbers.
  std::string indexedSql;
  std::vector<double> dates;
};

// Translates one statement from the part of the Jet dialect that the program uses: SELECT
// [DISTINCT] [TOP n], INSERT ... VALUES, UPDATE ... SET and DELETE FROM, dates between "#", texts
// between either quote, names in brackets, True and False, and the functions Fix, CDbl, Max, Min,
// Count, Sum and Avg. The content of quotes is never touched.
//
// A query without an order gets the one of ImpliedOrder.
//
// Callers put texts between quotes as they are, so a text with an apostrophe changes the statement.
// What Jet would refuse then is refused here: in VALUES only plain literals may stand, a text only
// where a value can, and nothing that only SQLite knows gets through. Throws DatabaseError
// kDbErrorSyntax.
TranslatedStatement TranslateJetSql(std::string_view sql);

// The same statement for the database server, which keeps no dates that the program asks for: dates
// and the functions Fix and CDbl are refused.
std::string TranslateJetSqlForServer(std::string_view sql);

// The same statement for Jet itself, with the order that a query without one gets.
std::string OrderedJetSql(std::string_view sql);

}  // namespace orvane
