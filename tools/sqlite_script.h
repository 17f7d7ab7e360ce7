#pragma once

#include <filesystem>
#include <memory>
#include <string>

struct sqlite3;

namespace orvane {

// A new SQLite file that is filled by scripts in one transaction: complete when Finish returns, and
// gone when it was never called. Failures are std::runtime_error.
class SqliteScript {
 public:
  // Throws when the file exists already.
  explicit SqliteScript(const std::filesystem::path& file);
  ~SqliteScript();
  SqliteScript(const SqliteScript&) = delete;
  SqliteScript& operator=(const SqliteScript&) = delete;

  void Run(const std::string& sql);
  void Finish();

 private:
  struct Closer {
    void operator()(sqlite3* database) const;
  };

  std::filesystem::path file_;
  std::unique_ptr<sqlite3, Closer> database_;
  bool finished_ = false;
};

}  // namespace orvane
