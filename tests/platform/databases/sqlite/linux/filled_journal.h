#pragma once

#include <signal.h>
#include <sys/resource.h>

#include "platform/databases/sqlite/sqlite_test_support.h"

namespace orvane {

constexpr const char* kDiskError = "Fehler beim Lesen oder Schreiben";

// A file of this process that would grow beyond the limit fails like one on a full disk, or the
// process is killed.
inline void LimitFileSize(rlim_t bytes, bool kills = false) {
  if (!kills) signal(SIGXFSZ, SIG_IGN);
  const rlimit limit{bytes, bytes};
  setrlimit(RLIMIT_FSIZE, &limit);
}

// Some pages in the middle are no pages any more.
inline std::string Damaged(std::string file) {
  constexpr std::size_t kPageBytes = 4096;
  return file.replace(20 * kPageBytes, 8 * kPageBytes, 8 * kPageBytes, 'x');
}

// A journal that gets calls, and is looked at, behind the back of the code under test.
class FilledJournal : public SqliteFixture {
 protected:
  void Fill(int calls, const std::string& table = "o") {
    RawSqlite(journal_).Run(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<" +
        std::to_string(calls) + ") INSERT INTO " + table +
        " (ID,Zeit,Firma) SELECT i, 45000+i, printf('%090d',i) FROM n");
  }
  // Checks the file and gives the answer.
  static std::string Ask(const std::filesystem::path& file, const std::string& sql) {
    EXPECT_EQ(RawSqlite(file).Run("PRAGMA integrity_check"), "ok ");
    return RawSqlite(file).Run(sql);
  }
};

}  // namespace orvane
