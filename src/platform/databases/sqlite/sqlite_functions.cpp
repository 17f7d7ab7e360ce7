#include "platform/databases/sqlite/sqlite_functions.h"

#include <sqlite3.h>

#include <cmath>

namespace orvane {
namespace {

using NumberFunction = double (*)(double);

template <NumberFunction function>
void ApplyToNumber(sqlite3_context* context, int /*count*/, sqlite3_value** values) {
  sqlite3_value* const value = *values;
  switch (sqlite3_value_numeric_type(value)) {
    case SQLITE_NULL:
      sqlite3_result_null(context);
      break;
    case SQLITE_INTEGER:
    case SQLITE_FLOAT:
      sqlite3_result_double(context, function(sqlite3_value_double(value)));
      break;
    default:
      sqlite3_result_error(context, "Datentypenkonflikt in Kriterienausdruck.", -1);
  }
}

double Fix(double number) {
  return std::trunc(number);
}
double CDbl(double number) {
  return number;
}

}  // namespace

bool AddJetFunctions(sqlite3* database) {
  constexpr int kFlags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_DIRECTONLY;
  return sqlite3_create_function_v2(database, "FIX", 1, kFlags, nullptr, ApplyToNumber<Fix>,
                                    nullptr, nullptr, nullptr) == SQLITE_OK &&
         sqlite3_create_function_v2(database, "CDBL", 1, kFlags, nullptr, ApplyToNumber<CDbl>,
                                    nullptr, nullptr, nullptr) == SQLITE_OK;
}

}  // namespace orvane
