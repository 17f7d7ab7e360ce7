#include "snapshot_writer.h"

#include <algorithm>
#include <cstdlib>

#include "platform/databases/jet/linux/jet_stream.h"

namespace orvane {
namespace {

constexpr int kExitNobodyListens = 3;

}  // namespace

void SnapshotWriter::Text(std::string_view text) {
  const auto bytes =
      static_cast<std::uint32_t>(std::min<std::size_t>(text.size(), jet_stream::kMaxTextBytes));
  Value(bytes);
  Raw(text.data(), bytes);
}

void SnapshotWriter::Finish() {
  if (std::fflush(stdout) != 0) std::_Exit(kExitNobodyListens);
}

void SnapshotWriter::Raw(const void* bytes, std::size_t count) {
  if (std::fwrite(bytes, 1, count, stdout) != count) std::_Exit(kExitNobodyListens);
}

}  // namespace orvane
