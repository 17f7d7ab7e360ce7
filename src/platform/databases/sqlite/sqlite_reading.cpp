#include "platform/databases/sqlite/sqlite_reading.h"

#include <sqlite3.h>

#include <algorithm>

#include "platform/databases/sqlite/sqlite_file.h"
#include "platform/databases/sqlite/sqlite_path.h"

namespace orvane {

std::string ReadThroughSqlite(const std::filesystem::path& file, std::size_t bytes) {
  sqlite3* opened = nullptr;
  const int failed = sqlite3_open_v2(SqlitePath(file).c_str(), &opened,
                                     SQLITE_OPEN_READONLY | SQLITE_OPEN_NOMUTEX, nullptr);
  const SqliteHandle database(opened);
  if (failed != SQLITE_OK) return {};
  sqlite3_file* content = nullptr;
  sqlite3_file_control(opened, "main", SQLITE_FCNTL_FILE_POINTER, &content);
  if (content == nullptr || content->pMethods == nullptr) return {};
  sqlite3_int64 size = 0;
  content->pMethods->xFileSize(content, &size);
  std::string result(std::min(bytes, static_cast<std::size_t>(size)), '\0');
  const int code =
      content->pMethods->xRead(content, result.data(), static_cast<int>(result.size()), 0);
  return code == SQLITE_OK ? result : std::string();
}

}  // namespace orvane
