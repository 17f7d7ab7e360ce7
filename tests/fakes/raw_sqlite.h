#pragma once

#include <sqlite3.h>

#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>

namespace orvane {

// Works on a file behind the back of the code under test, with nothing of its own in between.
class RawSqlite {
 public:
  explicit RawSqlite(const std::filesystem::path& file) {
    sqlite3* opened = nullptr;
    const int code = sqlite3_open(file.string().c_str(), &opened);
    database_.reset(opened);
    if (code != SQLITE_OK) throw std::runtime_error("cannot open " + file.string());
  }
  // The first column of all rows, each followed by a blank.
  std::string Run(const std::string& sql) {
    std::string result;
    const auto collect = [](void* text, int, char** values, char**) {
      static_cast<std::string*>(text)->append(values[0] != nullptr ? values[0] : "").append(" ");
      return 0;
    };
    if (sqlite3_exec(database_.get(), sql.c_str(), collect, &result, nullptr) != SQLITE_OK) {
      throw std::runtime_error(sqlite3_errmsg(database_.get()));
    }
    return result;
  }

 private:
  std::unique_ptr<sqlite3, decltype(&sqlite3_close)> database_{nullptr, &sqlite3_close};
};

}  // namespace orvane
