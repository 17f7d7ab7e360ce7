#include "jet_table.h"

#include <strings.h>

#include <algorithm>
#include <cstdlib>

#include "platform/databases/jet/linux/jet_stream.h"

namespace orvane {
namespace {

struct TableCloser {
  void operator()(MdbTableDef* table) const { mdb_free_tabledef(table); }
};
using Table = std::unique_ptr<MdbTableDef, TableCloser>;

char KindOf(const MdbColumn& column) {
  switch (column.col_type) {
    case MDB_BOOL:
    case MDB_BYTE:
    case MDB_INT:
    case MDB_LONGINT:
      return jet_stream::kInteger;
    case MDB_FLOAT:
    case MDB_DOUBLE:
    case MDB_DATETIME:
    case MDB_MONEY:
    case MDB_NUMERIC:
      return jet_stream::kReal;
    default:
      return jet_stream::kText;
  }
}

// One column of the table, with the place where the library puts its value as text.
class Field {
 public:
  explicit Field(MdbColumn& column, std::size_t bufferBytes)
      : column_(column), text_(bufferBytes, '\0') {
    column_.bind_ptr = text_.data();
    column_.len_ptr = &length_;
  }
  Field(const Field&) = delete;
  Field& operator=(const Field&) = delete;

  const MdbColumn& Column() const { return column_; }

  void Write(MdbHandle& file, SnapshotWriter& out) const {
    if (column_.col_type == MDB_BOOL) {
      // The library says by the length whether the bit is clear.
      WriteInteger(column_.cur_value_len != 0 ? 0 : -1, out);
    } else if (column_.cur_value_start == 0) {
      out.Byte(jet_stream::kNull);
    } else {
      WriteValue(file, out);
    }
  }

 private:
  static void WriteInteger(std::int64_t number, SnapshotWriter& out) {
    out.Byte(jet_stream::kInteger);
    out.Value(number);
  }
  static void WriteReal(double number, SnapshotWriter& out) {
    out.Byte(jet_stream::kReal);
    out.Value(number);
  }

  void WriteValue(MdbHandle& file, SnapshotWriter& out) const {
    const int at = column_.cur_value_start;
    constexpr int kWidestNumber = 8;
    const bool inside = at > 0 && at + kWidestNumber <= static_cast<int>(sizeof file.pg_buf);
    if (!inside && KindOf(column_) != jet_stream::kText) {
      out.Byte(jet_stream::kNull);
      return;
    }
    switch (column_.col_type) {
      case MDB_BYTE:
        return WriteInteger(mdb_get_byte(file.pg_buf, at), out);
      case MDB_INT:
        return WriteInteger(static_cast<std::int16_t>(mdb_get_int16(file.pg_buf, at)), out);
      case MDB_LONGINT:
        return WriteInteger(static_cast<std::int32_t>(mdb_get_int32(file.pg_buf, at)), out);
      case MDB_FLOAT:
        return WriteReal(static_cast<double>(mdb_get_single(file.pg_buf, at)), out);
      case MDB_DOUBLE:
      case MDB_DATETIME:
        return WriteReal(mdb_get_double(file.pg_buf, at), out);
      case MDB_MONEY:
      case MDB_NUMERIC:
        return WriteReal(std::strtod(text_.c_str(), nullptr), out);
      case MDB_TEXT:
      case MDB_MEMO:
        out.Byte(jet_stream::kText);
        return out.Text(text_.c_str());
      default:
        return out.Byte(jet_stream::kNull);
    }
  }

  MdbColumn& column_;
  std::string text_;
  int length_ = 0;
};

using Fields = std::vector<std::unique_ptr<Field>>;

Fields WantedFields(const MdbTableDef& table, const MdbHandle& file, const NameList& wanted) {
  Fields fields;
  for (guint i = 0; i < table.columns->len && fields.size() < jet_stream::kMaxColumns; ++i) {
    auto* const column = static_cast<MdbColumn*>(g_ptr_array_index(table.columns, i));
    if (wanted.Holds(column->name)) {
      fields.push_back(std::make_unique<Field>(*column, file.bind_size + 1));
    }
  }
  return fields;
}

void WriteHead(const MdbCatalogEntry& entry, const Fields& fields, SnapshotWriter& out) {
  out.Byte(jet_stream::kTable);
  out.Text(entry.object_name);
  out.Value(static_cast<std::uint16_t>(fields.size()));
  for (const auto& field : fields) {
    out.Byte(KindOf(field->Column()));
    out.Text(field->Column().name);
  }
}

}  // namespace

bool NameList::Holds(std::string_view name) const {
  return std::any_of(names_.begin(), names_.end(), [name](const std::string& entry) {
    return entry == "*" || (entry.size() == name.size() &&
                            strncasecmp(entry.c_str(), name.data(), name.size()) == 0);
  });
}

bool WriteTable(MdbCatalogEntry& entry, const NameList& wanted, SnapshotWriter& out) {
  const Table table(mdb_read_table(&entry));
  if (!table || mdb_read_columns(table.get()) == nullptr) return false;
  const Fields fields = WantedFields(*table, *entry.mdb, wanted);
  if (fields.empty()) return true;
  WriteHead(entry, fields, out);
  mdb_rewind_table(table.get());
  guint rows = 0;
  for (; mdb_fetch_row(table.get()) != 0; ++rows) {
    out.Byte(jet_stream::kRow);
    for (const auto& field : fields) field->Write(*entry.mdb, out);
  }
  // The library does not tell a page that it cannot read from the table's end; the table knows how
  // many rows it has.
  return rows >= table->num_rows;
}

}  // namespace orvane
