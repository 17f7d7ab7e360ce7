#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <set>

#include "fakes/raw_sqlite.h"
#include "fakes/temporary_folder.h"
#include "journal_schema.h"
#include "platform/databases/sqlite/sqlite_services.h"
#include "platform/errors.h"

namespace orvane {

inline std::string InsertCall(int id) {
  return "INSERT INTO o (ID,Ext,Zeit,Firma,Person) VALUES (" + std::to_string(id) +
         ",-1,#04/03/2024 09:05:07#,'" + std::string(90, 'F') + "','" + std::string(90, 'P') + "')";
}

// What the action's failure says; a test failure of its own when it is of another kind.
inline std::string FailureOf(const std::function<void()>& action,
                             std::int32_t number = kDbErrorFailed, bool ofStorage = true) {
  try {
    action();
  } catch (const DatabaseError& error) {
    EXPECT_EQ(error.Number(), number) << error.Description();
    EXPECT_EQ(error.OfStorage(), ofStorage) << error.Description();
    return error.Description();
  }
  return "no failure";
}

inline bool Contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

// An empty journal in a folder of its own.
class SqliteFixture : public testing::Test {
 protected:
  SqliteFixture() { CreateJournalFile(journal_); }

  static std::unique_ptr<DatabaseConnection> Open(
      const std::filesystem::path& file, DbMode mode = DbMode::kWrite,
      std::chrono::milliseconds writeLockWait = kWriteLockWait) {
    auto connection = SqliteServices(writeLockWait).NewConnection();
    connection->SetMode(mode);
    connection->SetProvider("Microsoft.Jet.OLEDB.4.0");
    connection->SetProperty("Data Source", file.string());
    connection->Open();
    return connection;
  }
  // One statement for good.
  void Write(const std::string& sql) const {
    const auto connection = Open(journal_);
    connection->Execute(sql);
    connection->Commit();
  }
  // The names of everything in the folder.
  std::string Names() const {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder_.Path())) {
      names.insert(entry.path().filename().string() + " ");
    }
    std::string result;
    for (const std::string& name : names) result += name;
    return result;
  }

  TemporaryFolder folder_;
  std::filesystem::path journal_ = folder_ / "TelList.fdb";
};

}  // namespace orvane
