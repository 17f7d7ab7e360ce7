#include "platform/databases/jet/linux/snapshot_loader.h"

#include <sqlite3.h>

#include <algorithm>
#include <cstring>
#include <utility>

#include "platform/databases/connection_properties.h"
#include "platform/databases/jet/linux/jet_stream.h"
#include "platform/text/text_tools.h"

namespace orvane {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int kStepsBetweenLooks = 10'000;

int IsLate(void* deadline) {
  return Clock::now() >= *static_cast<const Clock::time_point*>(deadline) ? 1 : 0;
}

std::string QuotedName(std::string_view name) {
  std::string result = "\"";
  for (const char c : name) result.append(c == '"' ? 2U : 1U, c);
  return result + '"';
}

const char* TypeName(char kind) {
  switch (kind) {
    case jet_stream::kInteger:
      return "INTEGER";
    case jet_stream::kReal:
      return "REAL";
    case jet_stream::kText:
      return "TEXT";
    default:
      return nullptr;
  }
}

}  // namespace

void SnapshotLoader::Finalizer::operator()(sqlite3_stmt* statement) const {
  sqlite3_finalize(statement);
}

SnapshotLoader::SnapshotLoader() {
  sqlite3* opened = nullptr;
  sqlite3_open_v2(":memory:", &opened,
                  SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE, nullptr);
  database_.reset(opened);
  Run("BEGIN");
}

SnapshotLoader::~SnapshotLoader() = default;

bool SnapshotLoader::Feed(std::string_view piece) {
  pending_ += piece;
  std::size_t understood = 0;
  Step step = Step::kDone;
  while (step == Step::kDone && understood < pending_.size()) {
    cursor_ = understood;
    step = NextItem();
    if (step == Step::kDone) understood = cursor_;
  }
  pending_.erase(0, understood);
  return step != Step::kBroken;
}

SqliteHandle SnapshotLoader::Take(const std::vector<std::string>& indexed,
                                  Clock::time_point deadline) {
  insert_.reset();
  sqlite3_progress_handler(database_.get(), kStepsBetweenLooks, IsLate, &deadline);
  bool good = ended_ && pending_.empty();
  for (const Table& table : tables_) {
    for (const std::string& column : table.columns) {
      const bool wanted = std::any_of(
          indexed.begin(), indexed.end(),
          [&column](const std::string& name) { return EqualsIgnoringCase(name, column); });
      if (!wanted || !good) continue;
      good = Run("CREATE INDEX " + QuotedName(table.name + "." + column) + " ON " +
                 QuotedName(table.name) + "(" + QuotedName(column) + ")");
    }
  }
  sqlite3_progress_handler(database_.get(), 0, nullptr, nullptr);
  return good && Run("COMMIT") ? std::move(database_) : nullptr;
}

SnapshotLoader::Step SnapshotLoader::NextItem() {
  if (ended_) return Step::kBroken;
  if (!begun_) {
    if (pending_.size() < jet_stream::kMagic.size()) return Step::kNeedsMore;
    begun_ = pending_.starts_with(jet_stream::kMagic);
    cursor_ = jet_stream::kMagic.size();
    return begun_ ? Step::kDone : Step::kBroken;
  }
  switch (pending_[cursor_++]) {
    case jet_stream::kTable:
      return ReadTable();
    case jet_stream::kRow:
      return ReadRow();
    case jet_stream::kEnd:
      ended_ = true;
      return Step::kDone;
    default:
      return Step::kBroken;
  }
}

SnapshotLoader::Step SnapshotLoader::ReadTable() {
  Table table;
  std::uint16_t count = 0;
  if (const Step step = TakeText(table.name); step != Step::kDone) return step;
  if (!TakeNumber(count)) return Step::kNeedsMore;
  if (count == 0 || count > jet_stream::kMaxColumns) return Step::kBroken;
  std::vector<char> kinds(count);
  table.columns.resize(count);
  for (std::size_t i = 0; i < count; ++i) {
    if (!TakeNumber(kinds[i])) return Step::kNeedsMore;
    if (const Step step = TakeText(table.columns[i]); step != Step::kDone) return step;
  }
  tables_.push_back(std::move(table));
  return CreateTable(kinds) ? Step::kDone : Step::kBroken;
}

bool SnapshotLoader::CreateTable(const std::vector<char>& kinds) {
  const Table& table = tables_.back();
  std::string columns;
  std::string places;
  for (std::size_t i = 0; i < kinds.size(); ++i) {
    const char* const type = TypeName(kinds[i]);
    if (type == nullptr) return false;
    if (i > 0) columns += ",";
    columns += QuotedName(table.columns[i]) + " " + type;
    places += i > 0 ? ",?" : "?";
  }
  insert_.reset();
  if (!Run("CREATE TABLE " + QuotedName(table.name) + "(" + columns + ")")) return false;
  const std::string insert = "INSERT INTO " + QuotedName(table.name) + " VALUES(" + places + ")";
  sqlite3_stmt* prepared = nullptr;
  const int code = sqlite3_prepare_v2(database_.get(), insert.c_str(), -1, &prepared, nullptr);
  insert_.reset(prepared);
  return code == SQLITE_OK;
}

SnapshotLoader::Step SnapshotLoader::ReadRow() {
  if (!insert_) return Step::kBroken;
  const int count = sqlite3_bind_parameter_count(insert_.get());
  for (int index = 1; index <= count; ++index) {
    if (const Step step = BindValue(index); step != Step::kDone) return step;
  }
  const bool inserted = sqlite3_step(insert_.get()) == SQLITE_DONE;
  sqlite3_reset(insert_.get());
  return inserted ? Step::kDone : Step::kBroken;
}

SnapshotLoader::Step SnapshotLoader::BindValue(int index) {
  char kind = 0;
  if (!TakeNumber(kind)) return Step::kNeedsMore;
  int code = SQLITE_ERROR;
  if (kind == jet_stream::kNull) {
    code = sqlite3_bind_null(insert_.get(), index);
  } else if (kind == jet_stream::kInteger) {
    std::int64_t number = 0;
    if (!TakeNumber(number)) return Step::kNeedsMore;
    code = sqlite3_bind_int64(insert_.get(), index, number);
  } else if (kind == jet_stream::kReal) {
    double number = 0;
    if (!TakeNumber(number)) return Step::kNeedsMore;
    code = sqlite3_bind_double(insert_.get(), index, number);
  } else if (kind == jet_stream::kText) {
    std::string text;
    if (const Step step = TakeText(text); step != Step::kDone) return step;
    code = sqlite3_bind_text(insert_.get(), index, text.c_str(), static_cast<int>(text.size()),
                             SQLITE_TRANSIENT);
  }
  return code == SQLITE_OK ? Step::kDone : Step::kBroken;
}

bool SnapshotLoader::Run(const std::string& sql) {
  return sqlite3_exec(database_.get(), sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK;
}

template <typename Number>
bool SnapshotLoader::TakeNumber(Number& number) {
  if (pending_.size() - cursor_ < sizeof number) return false;
  std::memcpy(&number, pending_.data() + cursor_, sizeof number);
  cursor_ += sizeof number;
  return true;
}

SnapshotLoader::Step SnapshotLoader::TakeText(std::string& text) {
  std::uint32_t bytes = 0;
  if (!TakeNumber(bytes)) return Step::kNeedsMore;
  if (bytes > jet_stream::kMaxTextBytes) return Step::kBroken;
  if (pending_.size() - cursor_ < bytes) return Step::kNeedsMore;
  text.assign(pending_, cursor_, bytes);
  cursor_ += bytes;
  return Step::kDone;
}

}  // namespace orvane
