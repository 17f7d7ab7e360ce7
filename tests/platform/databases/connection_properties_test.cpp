#include "platform/databases/connection_properties.h"

#include <gtest/gtest.h>

#include "platform/errors.h"

namespace orvane {

TEST(ConnectionProperties, SurviveTheirOwnText) {
  for (const std::string value : {"C:\\Daten\\", "a;b=c", "say \"so\"", "it's", " blank ", "", "\"",
                                  "Straße;", "=", "Mode=Read;Provider=x"}) {
    SCOPED_TRACE(value);
    ConnectionProperties properties;
    properties.SetMode(DbMode::kWrite);
    properties.Set("Data Source", value);
    const ConnectionProperties read = ConnectionProperties::Parse(properties.ToString());
    EXPECT_EQ(read.Mode(), DbMode::kWrite);
    EXPECT_EQ(read.Get("data source"), value);
    EXPECT_EQ(read.ToString(), properties.ToString());
  }
}

TEST(ConnectionProperties, ReadsForeignTexts) {
  const ConnectionProperties read = ConnectionProperties::Parse(
      " ;provider = P ;; Mode=readwrite; A='x;\"y'';z' ;B = \"q\"\"\"; C=; B=neu;");
  EXPECT_EQ(read.Provider(), "P");
  EXPECT_EQ(read.Mode(), DbMode::kReadWrite);
  EXPECT_EQ(read.Get("A"), "x;\"y';z");
  EXPECT_EQ(read.Get("B"), "neu");
  for (const char* const broken : {"x", "=x", "A=\"x", "A='x;B=y", "A='x'y;B=z", "'A'=x"}) {
    EXPECT_THROW(ConnectionProperties::Parse(broken), DatabaseError) << broken;
  }
}

TEST(ConnectionProperties, KeepsThePasswordOnlyWhenToldTo) {
  ConnectionProperties properties;
  properties.Set("Password", "geheim");
  EXPECT_EQ(properties.ToString().find("geheim"), std::string::npos);
  properties.Set("Persist Security Info", "True");
  EXPECT_NE(properties.ToString().find("geheim"), std::string::npos);
}

}  // namespace orvane
