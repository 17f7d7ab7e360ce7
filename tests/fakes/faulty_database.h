#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/database.h"
#include "platform/errors.h"

namespace orvane {

// Real databases that fail on demand: everything goes to the services given, is written down, and
// is refused where a test asked for it. A refused call does not reach the database.
class FaultyDatabase : public DatabaseServices {
 public:
  using Pair = std::pair<std::string, std::string>;

  explicit FaultyDatabase(DatabaseServices& inner) : inner_(inner) {}

  // What happened on all connections, in order; calls that were refused are in it too.
  std::vector<std::string> statements;
  // Names and values as set; provider, mode and connection string are listed as "Provider",
  // "Mode" and "ConnectionString".
  std::vector<Pair> properties;
  std::vector<Pair> compactions;  // source and path of the backup
  int opens = 0;
  int commits = 0;
  // Sees each statement before it is run, and may throw.
  std::function<void(std::string_view)> beforeStatement;
  // What comes in while a file is being opened.
  std::function<void()> whileOpening;

  // Every Open fails from now on.
  void FailOpen(std::int32_t number, const std::string& description) {
    openFault_.emplace(number, description, 0, true);
  }
  // Every Execute of a statement that contains `part` fails from now on; `ofStorage` says what
  // stands in its way.
  void FailStatement(std::string part, bool ofStorage = false) {
    statementFaults_.emplace_back(std::move(part), ofStorage);
  }
  void FailCommit(std::int32_t number, const std::string& description) {
    commitFault_.emplace(number, description, 0, true);
  }
  void FailCompact(std::int32_t number, const std::string& description) {
    compactFault_.emplace(number, description, 0, true);
  }
  // Nothing fails any more; what was written down stays.
  void Heal() {
    openFault_.reset();
    commitFault_.reset();
    compactFault_.reset();
    statementFaults_.clear();
  }

  // The value last set, or nothing.
  std::optional<std::string> Property(std::string_view name) const {
    for (auto it = properties.rbegin(); it != properties.rend(); ++it) {
      if (it->first == name) return it->second;
    }
    return std::nullopt;
  }

  std::unique_ptr<DatabaseConnection> NewConnection() override {
    return std::make_unique<Connection>(*this, inner_.NewConnection());
  }
  void CompactDatabase(std::string_view source, const std::string& backupPath) override {
    compactions.emplace_back(source, backupPath);
    if (compactFault_) throw DatabaseError(*compactFault_);
    inner_.CompactDatabase(source, backupPath);
  }

 private:
  class Connection : public DatabaseConnection {
   public:
    Connection(FaultyDatabase& owner, std::unique_ptr<DatabaseConnection> inner)
        : owner_(owner), inner_(std::move(inner)) {}

    void SetMode(DbMode mode) override {
      owner_.properties.emplace_back("Mode", std::to_string(static_cast<int>(mode)));
      inner_->SetMode(mode);
    }
    void SetCursorLocation(DbCursorLocation place) override { inner_->SetCursorLocation(place); }
    void SetProvider(std::string_view provider) override {
      owner_.properties.emplace_back("Provider", provider);
      inner_->SetProvider(provider);
    }
    void SetProperty(std::string_view name, std::string_view value) override {
      owner_.properties.emplace_back(name, value);
      inner_->SetProperty(name, value);
    }
    void SetConnectionString(std::string_view text) override {
      owner_.properties.emplace_back("ConnectionString", text);
      inner_->SetConnectionString(text);
    }
    std::string ConnectionString() const override { return inner_->ConnectionString(); }
    bool IsOpen() const override { return inner_->IsOpen(); }
    void Open() override {
      ++owner_.opens;
      if (owner_.whileOpening) owner_.whileOpening();
      if (owner_.openFault_) throw DatabaseError(*owner_.openFault_);
      inner_->Open();
    }
    std::unique_ptr<Recordset> Execute(std::string_view sql) override {
      owner_.statements.emplace_back(sql);
      owner_.ThrowStatementFault(sql);
      if (owner_.beforeStatement) owner_.beforeStatement(sql);
      return inner_->Execute(sql);
    }
    void Commit() override {
      ++owner_.commits;
      if (owner_.commitFault_) throw DatabaseError(*owner_.commitFault_);
      inner_->Commit();
    }
    void Close() override { inner_->Close(); }

   private:
    FaultyDatabase& owner_;
    std::unique_ptr<DatabaseConnection> inner_;
  };

  void ThrowStatementFault(std::string_view sql) const {
    for (const auto& [part, ofStorage] : statementFaults_) {
      if (sql.find(part) != sql.npos) {
        throw DatabaseError(kDbErrorFailed, "Testfehler", 0, ofStorage);
      }
    }
  }

  DatabaseServices& inner_;
  std::optional<DatabaseError> openFault_;
  std::optional<DatabaseError> commitFault_;
  std::optional<DatabaseError> compactFault_;
  std::vector<std::pair<std::string, bool>> statementFaults_;
};

}  // namespace orvane
