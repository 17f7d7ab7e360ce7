#include "platform/databases/dialect/jet_query.h"

#include <random>

#include "platform/databases/dialect/jet_sql.h"
#include "platform/databases/sqlite/sqlite_test_support.h"

namespace orvane {
namespace {

TEST(JetQuery, OrdersRowsWhereTheQueryDoesNot) {
  const std::pair<const char*, const char*> kCases[] = {
      {"SELECT A.AdrID,A.Ort,D.DetID FROM A LEFT JOIN D ON A.AdrID=D.AdrID WHERE D.x='1'",
       " ORDER BY 1, 3"},
      {"SELECT B.Id,B.Name,B.Bez FROM B INNER JOIN C ON B.x=C.x", " ORDER BY 1"},
      {"SELECT A.Ort FROM A LEFT JOIN D ON A.AdrID=D.AdrID", ""},
      {"SELECT A.AdrID FROM A LEFT JOIN D ON A.x=D.x ORDER BY A.Ort", ""},
      {"SELECT Ort FROM VW WHERE VW IN('0211','02114')", " ORDER BY LEN([VW]) DESC"},
      {"SELECT Ort FROM VW WHERE VW IN('0211') AND Ort='x'", ""},
      {"SELECT AdrID FROM VW WHERE VW='0211'", ""}};
  for (const auto& [sql, order] : kCases) {
    EXPECT_EQ(ImpliedOrder(SplitJetTokens(sql), false, "LEN"), order) << sql;
  }
  EXPECT_EQ(ImpliedOrder(SplitJetTokens("SELECT Zeit FROM o"), true, "LEN"), " ORDER BY 1 DESC");
}

TEST(JetQuery, SpeaksToTheServerAndToJetItself) {
  const std::tuple<const char*, const char*, const char*> kCases[] = {
      {"SELECT DISTINCT TOP 5 a FROM o;", "SELECT DISTINCT TOP 5 \"a\" FROM \"o\" ORDER BY 1 DESC",
       "SELECT DISTINCT TOP 5 a FROM o ORDER BY 1 DESC"},
      {"SELECT [x\"y], Max(b) FROM T WHERE c='it''s' OR d='Łódź' ",
       "SELECT \"x\"\"y\" , Max ( \"b\" ) FROM \"T\" WHERE \"c\" = 'it''s' OR \"d\" = N'Łódź'",
       "SELECT [x\"y], Max(b) FROM T WHERE c='it''s' OR d='Łódź'"},
      {"SELECT A.AdrID FROM A LEFT JOIN D ON A.x=D.x",
       "SELECT \"A\" . \"AdrID\" FROM \"A\" LEFT JOIN \"D\" ON \"A\" . \"x\" = \"D\" . \"x\" ORDER "
       "BY 1",
       "SELECT A.AdrID FROM A LEFT JOIN D ON A.x=D.x ORDER BY 1"}};
  for (const auto& [sql, server, jet] : kCases) {
    EXPECT_EQ(TranslateJetSqlForServer(sql), server);
    EXPECT_EQ(OrderedJetSql(sql), jet);
  }
  for (const char* const sql : {"DROP TABLE o", "SELECT a FROM o; DELETE FROM o",
                                "SELECT Fix(a) FROM o", "SELECT a FROM o WHERE b=#01/01/2024#"}) {
    EXPECT_THROW(TranslateJetSqlForServer(sql), DatabaseError) << sql;
  }
}

constexpr const char* kSelect = "SELECT A.k,A.n,D.id,D.t FROM A LEFT JOIN D ON A.k=D.k WHERE ";

TEST(JetQuery, LeavesOtherShapesAlone) {
  for (const char* const condition :
       {"D.t='1'", "A.n='1'", "D.t='1' AND A.n='1'", "D.t='1' OR A.n='1' AND A.k=1",
        "D.t='1' OR n='1'", "D.t='1' OR A.n>'1'", "D.t='1' OR A.n=D.t", "D.t='1' OR X.n='1'",
        "D.t IS NULL OR A.n='1'", "D.t='1' OR A.n='1' ORDER BY A.k", "NOT D.t='1' OR A.n='1'"}) {
    EXPECT_FALSE(IndexedJoin(SplitJetTokens(std::string(kSelect) + condition))) << condition;
  }
  EXPECT_FALSE(IndexedJoin(
      SplitJetTokens("SELECT * FROM A LEFT JOIN D ON A.k=D.k WHERE D.t='1' OR A.n='1'")));
  EXPECT_FALSE(IndexedJoin(
      SplitJetTokens("SELECT A.k FROM A INNER JOIN D ON A.k=D.k WHERE D.t='1' OR A.n='1'")));
}

// Tables full of equal values and nulls, also in the keys and in whole rows.
std::string RandomTables(std::mt19937& random) {
  const auto value = [&random] {
    const auto number = random() % 7;
    return number == 0 ? std::string("NULL") : "'" + std::to_string(number) + "'";
  };
  std::string script = "CREATE TABLE A (k, n); CREATE TABLE D (id, k, t, u);";
  for (int i = 0; i < 12; ++i) {
    script += "INSERT INTO A VALUES (" + value() + "," + value() + ");";
    script +=
        "INSERT INTO D VALUES (" + value() + "," + value() + "," + value() + "," + value() + ");";
  }
  return script;
}

TEST(JetQuery, FindsTheSameRowsThroughIndexes) {
  std::mt19937 random(4711);
  const std::string query =
      std::string(kSelect) + "D.t IN('1','2') OR D.u='3' OR A.n IN('2','5') OR A.n='6'";
  TranslatedStatement statement = TranslateJetSql(query);
  ASSERT_FALSE(statement.indexedSql.empty());
  const std::string forServer = TranslateJetSqlForServer(query);
  ASSERT_NE(forServer.find("UNION ALL"), std::string::npos);
  const std::string select = "SELECT quote(k)||quote(n)||quote(id)||quote(t) FROM (";
  for (int round = 0; round < 40; ++round) {
    RawSqlite database(":memory:");
    database.Run(RandomTables(random));
    const auto rows = [&](const std::string& sql) {
      std::string whole = select;
      return database.Run(whole.append(sql).append(") ORDER BY 1"));
    };
    EXPECT_EQ(rows(statement.indexedSql), rows(statement.sql)) << round;
    EXPECT_EQ(rows(forServer), rows(statement.sql)) << round;
  }
}

}  // namespace
}  // namespace orvane
