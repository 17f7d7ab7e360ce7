#pragma once

struct sqlite3;

namespace orvane {

// Adds the functions of the Jet dialect that SQLite lacks: Fix (cuts the fraction off, towards
// zero) and CDbl. Null stays null, and what is not a number is an error. False when out of memory.
bool AddJetFunctions(sqlite3* database);

}  // namespace orvane
