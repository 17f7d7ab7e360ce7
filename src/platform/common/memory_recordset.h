#pragma once

#include <string>
#include <vector>

#include "platform/database.h"

namespace orvane {

// A client-side cursor: all rows of a query, independent of the connection.
class MemoryRecordset : public Recordset {
 public:
  using Row = std::vector<DbValue>;

  // Every row has one value for each column.
  MemoryRecordset(std::vector<std::string> columns, std::vector<Row> rows)
      : columns_(std::move(columns)), rows_(std::move(rows)) {}

  bool AtEnd() const override { return at_ >= rows_.size(); }
  void MoveNext() override;
  DbValue Field(std::string_view name) const override;
  DbValue Field(int index) const override;

 private:
  const Row& Current() const;

  std::vector<std::string> columns_;
  std::vector<Row> rows_;
  std::size_t at_ = 0;
};

}  // namespace orvane
