#pragma once

#include <glib.h>
#include <mdbtools.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "snapshot_writer.h"

namespace orvane {

// Names whose letter case does not matter.
class NameList {
 public:
  explicit NameList(std::vector<std::string> names) : names_(std::move(names)) {}
  // "*" in the list holds every name.
  bool Holds(std::string_view name) const;

 private:
  std::vector<std::string> names_;
};

// Writes one table: those of its columns that are wanted, and all rows. False when the table cannot
// be read.
bool WriteTable(MdbCatalogEntry& entry, const NameList& wanted, SnapshotWriter& out);

}  // namespace orvane
