#include "journal_schema.h"

#include <string>

#include "sqlite_script.h"

namespace orvane {

namespace {

// The newest calls lie first. `Zeit` counts days since 1899-12-30.
constexpr const char* kColumns =
    " (ID INTEGER NOT NULL CHECK (ID BETWEEN -2147483648 AND 2147483647),"
    " Ext INTEGER, Zeit REAL, Firma TEXT, Ort TEXT, Person TEXT, Nr TEXT,"
    " AdrID INTEGER, DUID INTEGER, Dauer TEXT,"
    " PRIMARY KEY (ID DESC)) STRICT, WITHOUT ROWID";

}  // namespace

void CreateJournalFile(const std::filesystem::path& file, const std::string& calls) {
  SqliteScript script(file);
  for (const std::string table : {"o", "i"}) {
    script.Run("CREATE TABLE " + table + kColumns);
    script.Run(std::string("CREATE INDEX ")
                   .append(table)
                   .append("_Zeit ON ")
                   .append(table)
                   .append("(Zeit)"));
  }
  script.Run(calls);
  script.Finish();
}

}  // namespace orvane
