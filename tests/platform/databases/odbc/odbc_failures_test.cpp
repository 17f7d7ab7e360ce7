// What drivers say, and what the program makes of it.

#include "platform/databases/odbc/odbc_failures.h"

#include <gtest/gtest.h>

namespace orvane {
namespace {

struct Case {
  std::vector<OdbcDiagnosis> diagnoses;
  std::int32_t number;
  std::int32_t native;
  const char* words;
  bool ofStorage = false;
};

void Expect(const Case& expected, const DatabaseError& error, bool ofStorage) {
  SCOPED_TRACE(error.Description());
  EXPECT_EQ(error.Number(), expected.number);
  EXPECT_EQ(error.NativeNumber(), expected.native);
  EXPECT_EQ(error.OfStorage(), ofStorage);
  EXPECT_NE(error.Description().find(expected.words), std::string::npos) << expected.words;
}

TEST(OdbcFailures, OfAServer) {
  const OdbcSubject server{"orvane", "SQL Server"};
  const Case connecting[] = {
      {{{"01000", 0, "context"}, {"28000", 18452, "untrusted"}}, -2147217843, 18452, "'orvane'"},
      {{{"08001", 20002, ""}, {"42000", 18456, ""}}, -2147217843, 18456, "Anmeldung"},
      {{{"08001", 101, "FATAL: password authentication failed"}}, -2147217843, 101, "'orvane'"},
      {{{"08001", 17, ""}}, -2147467259, 17, "Server existiert nicht oder Zugriff verweigert."},
      {{{"01000", 0, "Can't open lib 'x'"}}, 3706, 0, "SQL Server"},
      {{}, -2147467259, 17, "Server existiert nicht"}};
  for (const Case& entry : connecting)
    Expect(entry, OdbcConnectError(entry.diagnoses, server), true);
  const Case running[] = {{{{"42S02", 208, "Objekt"}}, -2147217900, 208, "Objekt"},
                          {{{"23000", 2627, ""}}, -2147467259, 2627, "doppelte"},
                          {{{"23505", 7, ""}}, -2147467259, -1605, "doppelte"},
                          {{{"23000", 515, ""}}, -2147467259, 515, "leer"},
                          {{{"23000", 547, ""}}, -2147467259, 547, "Gültigkeitsregel"},
                          {{{"HYT00", 0, ""}}, -2147217871, 0, "Timeout"},
                          {{{"57014", 1, ""}}, -2147217871, 1, "Timeout"},
                          {{{"57P01", 1, ""}}, -2147467259, 1, "Netzwerkfehler", true},
                          {{{"08S01", 0, ""}}, -2147467259, 11, "Netzwerkfehler", true},
                          {{{"HY000", 5, "Eigenes"}}, -2147467259, 5, "Eigenes"}};
  for (const Case& entry : running)
    Expect(entry, OdbcStatementError(entry.diagnoses, server), entry.ofStorage);
}

TEST(OdbcFailures, OfAFile) {
  const OdbcSubject file{{}, "C:\\x.fdb", true};
  const Case connecting[] = {
      {{{"01000", 1, ""}, {"28000", -1905, ""}}, -2147217843, -1905, "Kein zulässiges Kennwort."},
      {{{"HY000", -1811, ""}}, -2147467259, -1811, "'C:\\x.fdb' konnte nicht gefunden werden."},
      {{{"HY000", -1032, ""}}, -2147467259, -1032, "von einem anderen Programm verwendet"},
      {{{"HY000", -1028, ""}}, -2147467259, -1028, "Nicht erkennbares Datenbankformat"},
      {{{"HY000", -1206, ""}}, -2147467259, -1206, "beschädigt"},
      {{{"HY000", -9999, ""}}, -2147467259, -9999, "Fehler beim Lesen oder Schreiben"},
      {{{"IM002", 0, ""}}, 3706, 0, "C:\\x.fdb"}};
  for (const Case& entry : connecting) Expect(entry, OdbcConnectError(entry.diagnoses, file), true);
  const Case running[] = {{{{"23000", -1605, ""}}, -2147467259, -1605, "doppelte"},
                          {{{"HY000", -1302, ""}}, -2147467259, -1302, "verwendet", true},
                          {{{"HY000", -1809, ""}}, -2147467259, -1809, "schreibgeschützt", true}};
  for (const Case& entry : running)
    Expect(entry, OdbcStatementError(entry.diagnoses, file), entry.ofStorage);
}

}  // namespace
}  // namespace orvane
