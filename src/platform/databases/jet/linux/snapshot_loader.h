#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/databases/sqlite/sqlite_file.h"

struct sqlite3_stmt;

namespace orvane {

// Fills a database in memory with what the reader of Jet files writes (jet_stream.h). Nothing in
// the stream is believed: every length and kind is looked at before it is used.
class SnapshotLoader {
 public:
  SnapshotLoader();
  ~SnapshotLoader();
  SnapshotLoader(const SnapshotLoader&) = delete;
  SnapshotLoader& operator=(const SnapshotLoader&) = delete;

  // The next piece of the stream, cut anywhere. False when it is not well-formed.
  bool Feed(std::string_view piece);
  // After the last piece: the tables, with an index on each column of `indexed`; nothing when the
  // stream was not complete or the indexes are not ready at the deadline.
  SqliteHandle Take(const std::vector<std::string>& indexed,
                    std::chrono::steady_clock::time_point deadline);

 private:
  struct Table {
    std::string name;
    std::vector<std::string> columns;
  };
  struct Finalizer {
    void operator()(sqlite3_stmt* statement) const;
  };
  enum class Step { kDone, kNeedsMore, kBroken };

  Step NextItem();
  Step ReadTable();
  Step ReadRow();
  bool CreateTable(const std::vector<char>& kinds);
  Step BindValue(int index);
  bool Run(const std::string& sql);

  // Read at the cursor; false when the rest is still to come.
  template <typename Number>
  bool TakeNumber(Number& number);
  Step TakeText(std::string& text);

  SqliteHandle database_;
  std::unique_ptr<sqlite3_stmt, Finalizer> insert_;
  std::vector<Table> tables_;
  std::string pending_;     // what was fed and not yet understood
  std::size_t cursor_ = 0;  // inside it
  bool begun_ = false;
  bool ended_ = false;
};

}  // namespace orvane
