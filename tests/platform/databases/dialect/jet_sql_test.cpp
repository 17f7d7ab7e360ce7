#include "platform/databases/dialect/jet_sql.h"

#include <gtest/gtest.h>

#include "platform/database.h"
#include "platform/errors.h"

namespace orvane {
namespace {

TEST(JetSql, TranslatesTheDialect) {
  const struct {
    const char *jet, *sqlite;
    std::vector<double> dates = {};
  } kCases[] = {
      {"SELECT DISTINCT TOP 300 Zeit,Max(Nr) FROM i WHERE Ext=-1 AND NOT Nr IS NULL;",
       "SELECT DISTINCT [Zeit] , Max ( [Nr] ) FROM [i] WHERE [Ext] = - 1 AND NOT [Nr] IS NULL "
       "ORDER BY 1 DESC LIMIT 300"},
      {"select top 5 * from o", "select * from [o] ORDER BY 1 DESC LIMIT 5"},
      {"SELECT TOP 5 a FROM o ORDER BY b", "SELECT [a] FROM [o] ORDER BY [b] LIMIT 5"},
      {"SELECT Zeit FROM o WHERE FIX(CDBL(Zeit))>=45385 AND Ort IN('18','187')",
       "SELECT [Zeit] FROM [o] WHERE FIX ( CDBL ( [Zeit] ) ) >= 45385 AND [Ort] IN ( '18' , '187' "
       ")"},
      {"UPDATE o Set Zeit=#04/03/2024 12:00:00#, Dauer='3 Min. ' WHERE Zeit=#12/31/1899#",
       "UPDATE [o] Set [Zeit] = ? , [Dauer] = '3 Min. ' WHERE [Zeit] = ?",
       {45385.5, 1}},
      {"DELETE FROM o WHERE ID<-557", "DELETE FROM [o] WHERE [ID] < - 557"},
      {"INSERT INTO o (a,b) VALUES (1.5E+3,NULL,'','a''b',True)",
       "INSERT INTO [o] ( [a] , [b] ) VALUES ( 1.5E+3 , NULL , '' , 'a''b' , -1 )"},
      {"SELECT A.x FROM A LEFT JOIN D ON A.x=D.x",
       "SELECT [A] . [x] FROM [A] LEFT JOIN [D] ON [A] . [x] = [D] . [x]"},
      // Quoted content stays as it is; words that only SQLite knows are names.
      {"SELECT a FROM o WHERE b='#01/01/2024# TOP 5; -- /* [x] \"y\"'",
       "SELECT [a] FROM [o] WHERE [b] = '#01/01/2024# TOP 5; -- /* [x] \"y\"'"},
      {"SELECT a FROM o WHERE b=\"it's \"\"so\"\"\"",
       "SELECT [a] FROM [o] WHERE [b] = 'it''s \"so\"'"},
      {"SELECT [Max], [a b;--'] FROM [o]", "SELECT [Max] , [a b;--'] FROM [o]"},
      {"SELECT Glob, Straße FROM o LIMIT 5", "SELECT [Glob] , [Straße] FROM [o] [LIMIT] 5"}};
  for (const auto& [jet, sqlite, dates] : kCases) {
    SCOPED_TRACE(jet);
    const TranslatedStatement result = TranslateJetSql(jet);
    EXPECT_EQ(result.sql, sqlite);
    EXPECT_EQ(result.dates, dates);
  }
}

TEST(JetSql, ReadsDates) {
  const std::pair<std::string, double> kCases[] = {{"12/30/1899", 0},
                                                   {"04/03/2024 09:05:07", 45385 + 32707 / 86400.0},
                                                   {"4/3/2024 9:05:07", 45385 + 32707 / 86400.0},
                                                   {"02/29/2024 23:59:59", 45351 + 86399 / 86400.0},
                                                   {"12/29/1899 06:00:00", -1.25},
                                                   {"01/01/0100", -657434},
                                                   {"12/31/9999", 2958465}};
  for (const auto& [text, number] : kCases) {
    const std::string sql = "DELETE FROM o WHERE Zeit=#" + text + "#";
    EXPECT_EQ(TranslateJetSql(sql).dates, std::vector<double>{number}) << text;
  }
}

std::vector<std::string> Texts(const auto&... texts) {
  return {texts...};
}

TEST(JetSql, RefusesWhatJetRefuses) {
  const auto statements = Texts(
      "", ";", "PRAGMA user_version", "ATTACH 'x' AS y", "DROP TABLE o", "EXPLAIN SELECT 1",
      "WITH a AS (SELECT 1) SELECT * FROM a", "SELECT a FROM o; DELETE FROM o", "SELECT a FROM o;;",
      "SELECT a FROM o -- rest", "SELECT a FROM o /* rest */", "SELECT 5--3 FROM o",
      "SELECT [a FROM o", "SELECT [] FROM o", "SELECT `a` FROM o", "SELECT {a} FROM o",
      "SELECT a||b FROM o", "SELECT ~a FROM o", "SELECT a/b FROM o", "SELECT 12abc FROM o",
      "SELECT 1e FROM o", "SELECT load_extension('x') FROM o", "SELECT randomblob(9) FROM o",
      "SELECT * FROM pragma_table_info('o')", "SELECT Max(a,b) FROM o", "SELECT [Max](a) FROM o",
      "SELECT TOP 0 a FROM o", "SELECT TOP -1 a FROM o", "SELECT TOP 1.5 a FROM o",
      "SELECT TOP 99999999999 a FROM o", "SELECT TOP a FROM o", "SELECT TOP 5, a FROM o",
      "SELECT Count(DISTINCT a) FROM o", "SELECT a FROM 'o'", "SELECT a 'b' FROM o",
      "SELECT a AS 'b' FROM o", "INSERT OR REPLACE INTO o (a) VALUES (1)",
      "INSERT INTO o DEFAULT VALUES", "INSERT INTO o (a) SELECT b FROM i",
      "INSERT INTO o (a) VALUES (1) RETURNING a", "INSERT INTO o (a) VALUES (1),(2)",
      "UPDATE OR IGNORE o SET a=1", "UPDATE o SET a=1 FROM i", "UPDATE  Set Zeit=#01/01/2024#",
      "DELETE o", "DELETE FROM o LIMIT 1", std::string("SELECT a FROM o\0 WHERE b=1", 26),
      std::string("SELECT 'a\0b' FROM o", 19));
  const auto conditions =
      Texts("b='x", "b='O'Brien'", "b=\"x", "b='x' 'y'", "b='x'+'y'", "b='x'-1", "b=?", "b=@x",
            "b=$x", "b==1", "b!=1", "b->c", "b|c", "b IN (SELECT c FROM i)", "b=##",
            "b=#01/01/2024", "b=#02/30/2024#", "b=#13/01/2024#", "b=#01/01/24#", "b=#2024-01-01#",
            "b=#01/01/2024 24:00:00#", "b=#01/01/2024 10:60:00#", "b=#01/01/2024 10:00:00 x#");
  std::vector<std::string> all = statements;
  for (const auto& condition : conditions) all.push_back("SELECT a FROM o WHERE " + condition);
  for (const std::string& sql : all) {
    SCOPED_TRACE(sql);
    try {
      TranslateJetSql(sql);
      ADD_FAILURE() << "was accepted";
    } catch (const DatabaseError& error) {
      EXPECT_EQ(error.Number(), kDbErrorSyntax);
      EXPECT_TRUE(error.Description().starts_with("Syntaxfehler")) << error.Description();
    }
  }
}

// A name is put between the quotes as it is: with an apostrophe the whole insert fails, and it
// never stores anything else.
TEST(JetSql, RefusesInsertsBrokenByAName) {
  const auto insert = [](const std::string& name) {
    TranslateJetSql("INSERT INTO o (ID,Firma,Ort) VALUES (1,'" + name + "','Ort')");
  };
  for (const char* const name :
       {"O'Brien",  "A'+'B",    "Wein' OR 'Bier", "A' & 'B",   "A' AND 'B",    "A'='B",
        "'",        "A'||'B",   "A' 'B",          "A','B')--", "A'); --",      "x' IS NULL OR '",
        "A'<'B",    "'''",      "A' IN('",        "A'*'B",     "A'LIKE'B",     "A'-1-'",
        "A',Ext,'", "A',(1),'", "A',-'B",         "A',--1,'B", "A',Max('1'),'"}) {
    EXPECT_THROW(insert(name), DatabaseError) << name;
  }
  for (const char* const name : {"A''B", "50% \"Rabatt\"; #1 -- [x]", "", "\xE2\x80\x99"}) {
    EXPECT_NO_THROW(insert(name)) << name;
  }
}

}  // namespace
}  // namespace orvane
