#include "platform/common/jet_sql.h"

#include <gtest/gtest.h>

#include "platform/database.h"
#include "platform/errors.h"

namespace orvane {
namespace {

struct TranslationCase {
  const char* jet;
  const char* sqlite;
  std::vector<double> dates;
};

TEST(JetSql, TranslatesTheDialect) {
  const TranslationCase cases[] = {
      {"SELECT Max(ID) FROM o", "SELECT Max ( [ID] ) FROM [o]", {}},
      {"SELECT DISTINCT TOP 300 Zeit,Ext,Nr FROM i WHERE Ext=-1 AND NOT Nr IS NULL",
       "SELECT DISTINCT [Zeit] , [Ext] , [Nr] FROM [i] WHERE [Ext] = - 1 AND NOT [Nr] IS NULL "
       "LIMIT 300",
       {}},
      {"select top 5 * from o;", "select * from [o] LIMIT 5", {}},
      {"SELECT Zeit FROM o WHERE FIX(CDBL(Zeit))>=45385 AND fix(CDbl(Zeit))<45390.5",
       "SELECT [Zeit] FROM [o] WHERE FIX ( CDBL ( [Zeit] ) ) >= 45385 AND fix ( CDbl ( [Zeit] ) ) "
       "< 45390.5",
       {}},
      {"UPDATE o Set Zeit=#04/03/2024 12:00:00#, Dauer='3 Min. ' WHERE Zeit=#12/31/1899#",
       "UPDATE [o] Set [Zeit] = ? , [Dauer] = '3 Min. ' WHERE [Zeit] = ?",
       {45385.5, 1}},
      {"DELETE FROM o WHERE ID<-557", "DELETE FROM [o] WHERE [ID] < - 557", {}},
      {"INSERT INTO o (ID,Ext,Zeit,Firma,Nr) VALUES (1,-1,#04/03/2024#,'A','0697')",
       "INSERT INTO [o] ( [ID] , [Ext] , [Zeit] , [Firma] , [Nr] ) VALUES ( 1 , - 1 , ? , 'A' , "
       "'0697' )",
       {45385}},
      {"INSERT INTO o VALUES (1.5E+3,NULL,'','a''b',True)",
       "INSERT INTO [o] VALUES ( 1.5E+3 , NULL , '' , 'a''b' , -1 )",
       {}},
      {"SELECT Ort FROM VW WHERE VW IN('18','187','1876')",
       "SELECT [Ort] FROM [VW] WHERE [VW] IN ( '18' , '187' , '1876' )",
       {}},
      {"SELECT Adressen.AdrID,D.DetID FROM Adressen LEFT JOIN D ON Adressen.AdrID=D.AdrID",
       "SELECT [Adressen] . [AdrID] , [D] . [DetID] FROM [Adressen] LEFT JOIN [D] ON [Adressen] . "
       "[AdrID] = [D] . [AdrID]",
       {}},
      // Quoted content stays as it is, whatever it looks like.
      {"SELECT a FROM o WHERE b='#01/01/2024# TOP 5; -- /* [x] \"y\"'",
       "SELECT [a] FROM [o] WHERE [b] = '#01/01/2024# TOP 5; -- /* [x] \"y\"'",
       {}},
      {"SELECT a FROM o WHERE b=\"it's \"\"so\"\"\"",
       "SELECT [a] FROM [o] WHERE [b] = 'it''s \"so\"'",
       {}},
      {"SELECT [Max], [a b;--'] FROM [o]", "SELECT [Max] , [a b;--'] FROM [o]", {}},
      // Words that only SQLite knows are names.
      {"SELECT Glob, Straße FROM Limit", "SELECT [Glob] , [Straße] FROM [Limit]", {}},
      {"SELECT a FROM o LIMIT 5", "SELECT [a] FROM [o] [LIMIT] 5", {}},
  };
  for (const TranslationCase& c : cases) {
    SCOPED_TRACE(c.jet);
    const TranslatedStatement result = TranslateJetSql(c.jet);
    EXPECT_EQ(result.sql, c.sqlite);
    EXPECT_EQ(result.dates, c.dates);
  }
}

TEST(JetSql, ReadsDates) {
  struct Case {
    const char* text;
    double number;
  };
  const Case cases[] = {
      {"12/30/1899", 0},
      {"04/03/2024 09:05:07", 45385 + 32707 / 86400.0},
      {"4/3/2024 9:05:07", 45385 + 32707 / 86400.0},
      {"02/29/2024 23:59:59", 45351 + 86399 / 86400.0},
      {"12/29/1899 06:00:00", -1.25},
      {"01/01/0100", -657434},
      {"12/31/9999", 2958465},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    const std::string sql = "DELETE FROM o WHERE Zeit=#" + std::string(c.text) + "#";
    EXPECT_EQ(TranslateJetSql(sql).dates, std::vector<double>{c.number});
  }
}

TEST(JetSql, RefusesWhatJetRefuses) {
  const char* const cases[] = {
      "",
      ";",
      "PRAGMA user_version",
      "ATTACH 'x' AS y",
      "WITH a AS (SELECT 1) SELECT * FROM a",
      "DROP TABLE o",
      "EXPLAIN SELECT 1",
      // A second statement, comments.
      "SELECT a FROM o; DELETE FROM o",
      "SELECT a FROM o;;",
      "SELECT a FROM o -- rest",
      "SELECT a FROM o /* rest */",
      "SELECT 5--3 FROM o",
      // Open quotes, brackets and dates; impossible dates.
      "SELECT a FROM o WHERE b='x",
      "SELECT a FROM o WHERE b='O'Brien'",
      "SELECT a FROM o WHERE b=\"x",
      "SELECT [a FROM o",
      "SELECT [] FROM o",
      "SELECT a FROM o WHERE b=#01/01/2024",
      "SELECT a FROM o WHERE b=##",
      "SELECT a FROM o WHERE b=#02/30/2024#",
      "SELECT a FROM o WHERE b=#13/01/2024#",
      "SELECT a FROM o WHERE b=#01/01/2024 24:00:00#",
      "SELECT a FROM o WHERE b=#01/01/2024 10:60:00#",
      "SELECT a FROM o WHERE b=#01/01/24#",
      "SELECT a FROM o WHERE b=#2024-01-01#",
      "SELECT a FROM o WHERE b=#01/01/2024 10:00:00 x#",
      "UPDATE o SET Zeit=## WHERE Zeit=##",
      // Characters and operators that are not of the dialect.
      "SELECT a||b FROM o",
      "SELECT a FROM o WHERE b==1",
      "SELECT a->b FROM o",
      "SELECT a FROM o WHERE b!=1",
      "SELECT a|b FROM o",
      "SELECT ~a FROM o",
      "SELECT a FROM o WHERE b=?",
      "SELECT a FROM o WHERE b=@x",
      "SELECT a FROM o WHERE b=$x",
      "SELECT `a` FROM o",
      "SELECT {a} FROM o",
      "SELECT a/b FROM o",
      "SELECT 12abc FROM o",
      "SELECT 1e FROM o",
      // Functions.
      "SELECT load_extension('x') FROM o",
      "SELECT randomblob(9) FROM o",
      "SELECT * FROM pragma_table_info('o')",
      "SELECT Max(a,b) FROM o",
      "SELECT [Max](a) FROM o",
      // TOP, DISTINCT and SELECT in the wrong place.
      "SELECT TOP 0 a FROM o",
      "SELECT TOP -1 a FROM o",
      "SELECT TOP 1.5 a FROM o",
      "SELECT TOP 99999999999 a FROM o",
      "SELECT TOP a FROM o",
      "SELECT TOP 5, a FROM o",
      "SELECT a FROM o WHERE b IN (SELECT c FROM i)",
      "SELECT Count(DISTINCT a) FROM o",
      // Texts where SQLite would take them for something else.
      "SELECT a FROM 'o'",
      "SELECT a 'b' FROM o",
      "SELECT a AS 'b' FROM o",
      "SELECT a FROM o WHERE b='x' 'y'",
      "SELECT a FROM o WHERE b='x'+'y'",
      "SELECT a FROM o WHERE b='x'-1",
      // Forms of the statements that Jet does not know.
      "INSERT OR REPLACE INTO o (a) VALUES (1)",
      "INSERT INTO o DEFAULT VALUES",
      "INSERT INTO o (a) SELECT b FROM i",
      "INSERT INTO o (a) VALUES (1) RETURNING a",
      "INSERT INTO o (a) VALUES (1),(2)",
      "UPDATE OR IGNORE o SET a=1",
      "UPDATE o SET a=1 FROM i",
      "UPDATE  Set Zeit=#01/01/2024#",
      "DELETE o",
      "DELETE FROM o LIMIT 1",
  };
  for (const char* const sql : cases) {
    SCOPED_TRACE(sql);
    try {
      TranslateJetSql(sql);
      ADD_FAILURE() << "was accepted";
    } catch (const DatabaseError& error) {
      EXPECT_EQ(error.Number(), kDbErrorSyntax);
      EXPECT_EQ(error.Description().rfind("Syntaxfehler", 0), 0U) << error.Description();
    }
  }
  EXPECT_THROW(TranslateJetSql(std::string_view("SELECT a FROM o\0 WHERE b=1", 26)), DatabaseError);
  EXPECT_THROW(TranslateJetSql(std::string_view("SELECT 'a\0b' FROM o", 19)), DatabaseError);
}

// A name is put between the quotes as it is: with an apostrophe the whole insert fails, and it
// never stores anything else.
TEST(JetSql, RefusesInsertsBrokenByAName) {
  const char* const names[] = {
      "O'Brien",  "A'+'B",    "Wein' OR 'Bier", "A' & 'B",   "A' AND 'B",     "A'='B",
      "'",        "A'||'B",   "A' 'B",          "A','B')--", "A'); --",       "x' IS NULL OR '",
      "A'<'B",    "'''",      "A' IN('",        "A'*'B",     "A'LIKE'B",      "A'-1-'",
      "A',Ext,'", "A',(1),'", "A',-'B",         "A',--1,'B", "A',Max('1'),'",
  };
  for (const std::string name : names) {
    SCOPED_TRACE(name);
    EXPECT_THROW(TranslateJetSql("INSERT INTO o (ID,Firma,Ort) VALUES (1,'" + name + "','Ort')"),
                 DatabaseError);
  }
  for (const std::string name : {"A''B", "50% \"Rabatt\"; #1 -- [x]", "", "\xE2\x80\x99"}) {
    SCOPED_TRACE(name);
    EXPECT_NO_THROW(
        TranslateJetSql("INSERT INTO o (ID,Firma,Ort) VALUES (1,'" + name + "','Ort')"));
  }
}

}  // namespace
}  // namespace orvane
