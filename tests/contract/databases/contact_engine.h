#pragma once

#include <fstream>
#include <functional>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "app/program_state.h"
#include "fakes/faulty_database.h"
#include "fakes/raw_sqlite.h"
#include "fakes/temporary_folder.h"
#include "platform/databases/database_errors.h"
#include "platform/databases/sqlite/sqlite_services.h"
#include "sqlite_script.h"

namespace orvane {

// A contact database with the content of tests/data/contacts.sql, kept by one of the engines.
class ContactEngine {
 public:
  virtual ~ContactEngine() = default;
  virtual DatabaseServices& Databases() = 0;
  // Makes the host's settings lead to it.
  virtual void Select(HostEnvironment& host) = 0;
  // Lets the next opening fail, until Select is called again; false when that cannot happen here.
  virtual bool Cause(DatabaseFailure failure, HostEnvironment& host) = 0;
  virtual bool CanWrite() const { return true; }
  // Why it cannot be tried on this machine; empty when it can.
  virtual std::string Obstacle() const { return {}; }
};

struct ContactEngineEntry {
  const char* name;
  std::function<std::unique_ptr<ContactEngine>()> make;
};

// Those that only this system has.
std::vector<ContactEngineEntry> SystemContactEngines();
// All.
std::vector<ContactEngineEntry> ContactEngines();

inline std::string TestDataText(const std::string& name) {
  std::ifstream file(std::string(ORVANE_TEST_DATA) + "/" + name, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

// A file that is none, in place of the contacts.
class OtherFile {
 public:
  bool Cause(DatabaseFailure failure, HostEnvironment& host) {
    std::filesystem::remove(folder_ / "CONTACT.FDB");
    if (failure == DatabaseFailure::kFileNotRecognised) {
      folder_.Write("CONTACT.FDB", std::string(8192, 'x'));
    } else if (failure != DatabaseFailure::kFileMissing) {
      return false;
    }
    host.dataPath = folder_.Path().string() + "/";
    return true;
  }

 private:
  TemporaryFolder folder_;
};

class SqliteContacts : public ContactEngine {
 public:
  SqliteContacts() {
    SqliteScript script(folder_ / "CONTACT.FDB");
    script.Run(TestDataText("contacts.sql"));
    script.Finish();
  }
  DatabaseServices& Databases() override { return sqlite_; }
  void Select(HostEnvironment& host) override {
    lock_.reset();
    host.dataPath = folder_.Path().string() + "/";
  }
  bool Cause(DatabaseFailure failure, HostEnvironment& host) override {
    if (failure != DatabaseFailure::kFileLocked) return other_.Cause(failure, host);
    lock_.emplace(folder_ / "CONTACT.FDB").Run("BEGIN EXCLUSIVE");
    return true;
  }

 private:
  TemporaryFolder folder_;
  OtherFile other_;
  std::optional<RawSqlite> lock_;
  SqliteServices sqlite_;
};

// Through the tests' own connection, which may answer in no other way than the real ones.
class FaultyContacts : public SqliteContacts {
 public:
  DatabaseServices& Databases() override { return faulty_; }

 private:
  FaultyDatabase faulty_{SqliteContacts::Databases()};
};

}  // namespace orvane
