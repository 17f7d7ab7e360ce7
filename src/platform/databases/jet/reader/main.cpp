// Reads tables of a Jet file. The file comes from anywhere and the library trusts it, so this is a
// program of its own: it has little memory and little time, may write nothing, and its end is
// nobody else's.
//
//   orvane-jet-reader <table or column name, or *>... <file.fdb >snapshot
//
// Of the tables that are named, it writes the columns that are named (jet_stream.h). Without names
// it only finds out whether the file's catalogue can be read.

#include <glib.h>
#include <mdbtools.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/resource.h>

#include <string>
#include <string_view>
#include <vector>

#include "jet_table.h"
#include "platform/databases/jet/linux/jet_stream.h"
#include "snapshot_writer.h"

namespace {

[[maybe_unused]] constexpr rlim_t kMemoryBytes = rlim_t{256} << 20;
constexpr rlim_t kProcessorSeconds = 20;
constexpr rlim_t kOpenFiles = 16;
constexpr int kExitLimits = 1;
constexpr int kExitDamaged = 2;

bool Limit(__rlimit_resource resource, rlim_t most) {
  const rlimit limit{most, most};
  return setrlimit(resource, &limit) == 0;
}

bool LimitMemory() {
#ifdef __SANITIZE_ADDRESS__
  return true;  // which needs addresses beyond every limit
#else
  return Limit(RLIMIT_AS, kMemoryBytes);
#endif
}

bool GiveUpMostRights() {
  return prctl(PR_SET_PDEATHSIG, SIGKILL) == 0 && prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
         LimitMemory() && Limit(RLIMIT_CPU, kProcessorSeconds) &&
         Limit(RLIMIT_NOFILE, kOpenFiles) && Limit(RLIMIT_FSIZE, 0) && Limit(RLIMIT_CORE, 0);
}

bool WriteTables(MdbHandle& file, const orvane::NameList& wanted, orvane::SnapshotWriter& out) {
  const GPtrArray* const catalogue = mdb_read_catalog(&file, MDB_TABLE);
  if (catalogue == nullptr) return false;
  for (guint i = 0; i < catalogue->len; ++i) {
    auto* const entry = static_cast<MdbCatalogEntry*>(g_ptr_array_index(catalogue, i));
    if (mdb_is_user_table(entry) == 0 || !wanted.Holds(entry->object_name)) continue;
    if (!orvane::WriteTable(*entry, wanted, out)) return false;
  }
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  if (!GiveUpMostRights()) return kExitLimits;
  const orvane::NameList wanted(std::vector<std::string>(argv + 1, argv + argc));
  MdbHandle* const file = mdb_open("/dev/stdin", MDB_NOFLAGS);
  if (file == nullptr) return kExitDamaged;
  orvane::SnapshotWriter out;
  for (const char c : orvane::jet_stream::kMagic) out.Byte(c);
  if (!WriteTables(*file, wanted, out)) return kExitDamaged;
  out.Byte(orvane::jet_stream::kEnd);
  out.Finish();
  // The library's own clean-up would walk through everything once more.
  std::_Exit(0);
}
