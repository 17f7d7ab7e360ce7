#include "platform/databases/memory_recordset.h"

#include <utility>

#include "platform/databases/connection_properties.h"
#include "platform/databases/database_errors.h"
#include "platform/text/text_tools.h"

namespace orvane {

void MemoryRecordset::MoveNext() {
  Current();
  ++at_;
  if (AtEnd() && failure_) throw *std::exchange(failure_, std::nullopt);
}

DbValue MemoryRecordset::Field(std::string_view name) const {
  const Row& row = Current();
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if (EqualsIgnoringCase(columns_[i], name)) return row[i];
  }
  ThrowNoSuchField();
}

DbValue MemoryRecordset::Field(int index) const {
  const Row& row = Current();
  if (index < 0 || static_cast<std::size_t>(index) >= row.size()) ThrowNoSuchField();
  return row[static_cast<std::size_t>(index)];
}

const MemoryRecordset::Row& MemoryRecordset::Current() const {
  if (AtEnd()) ThrowNoCurrentRow();
  return rows_[at_];
}

}  // namespace orvane
