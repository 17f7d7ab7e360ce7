#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/database.h"
#include "platform/errors.h"

namespace orvane {

// A client-side cursor: all rows of a query, independent of the connection.
class MemoryRecordset : public Recordset {
 public:
  using Row = std::vector<DbValue>;

  // Every row has one value for each column. `failure` is what ended the reading too early: moving
  // on from the last row throws it.
  MemoryRecordset(std::vector<std::string> columns, std::vector<Row> rows,
                  std::optional<DatabaseError> failure = {})
      : columns_(std::move(columns)), rows_(std::move(rows)), failure_(std::move(failure)) {}

  bool AtEnd() const override { return at_ >= rows_.size(); }
  void MoveNext() override;
  DbValue Field(std::string_view name) const override;
  DbValue Field(int index) const override;

 private:
  const Row& Current() const;

  std::vector<std::string> columns_;
  std::vector<Row> rows_;
  std::optional<DatabaseError> failure_;
  std::size_t at_ = 0;
};

}  // namespace orvane
