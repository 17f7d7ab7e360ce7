#include "sqlite_script.h"

#include <sqlite3.h>

#include <stdexcept>
#include <system_error>

namespace orvane {

SqliteScript::SqliteScript(const std::filesystem::path& file) : file_(file) {
  if (std::filesystem::exists(file)) {
    throw std::runtime_error(file.string() + " exists already");
  }
  const std::u8string utf8 = file.u8string();
  sqlite3* opened = nullptr;
  const int code = sqlite3_open(reinterpret_cast<const char*>(utf8.c_str()), &opened);
  database_.reset(opened);
  if (code != SQLITE_OK) throw std::runtime_error("cannot create " + file.string());
  Run("BEGIN");
}

SqliteScript::~SqliteScript() {
  database_.reset();
  std::error_code ignored;
  if (!finished_) std::filesystem::remove(file_, ignored);
}

void SqliteScript::Closer::operator()(sqlite3* database) const {
  sqlite3_close(database);
}

void SqliteScript::Run(const std::string& sql) {
  if (sqlite3_exec(database_.get(), sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
    throw std::runtime_error(file_.string() + ": " + sqlite3_errmsg(database_.get()));
  }
}

void SqliteScript::Finish() {
  Run("COMMIT");
  finished_ = true;
}

}  // namespace orvane
