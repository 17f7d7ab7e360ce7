#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvane {

// The columns of the call history by number; the first one is never shown.
enum class CallColumn : int { kOrder, kTime, kNumber, kCompany, kPlace, kPerson };
inline constexpr int kCallColumns = 6;

// How the user has arranged the columns.
struct CallColumns {
  struct Column {
    CallColumn column = CallColumn::kTime;
    // Device-independent pixels.
    int width = 0;

    bool operator==(const Column&) const = default;
  };
  // The shown columns from left to right, each once.
  std::vector<Column> shown;
  CallColumn sortedBy = CallColumn::kTime;
  bool descending = true;

  bool operator==(const CallColumns&) const = default;
};

// Whether the user has arranged nothing in between: the last column's width does not count, which
// is the room that is left.
bool SameArrangement(const CallColumns& a, CallColumns b);

// As stored in the settings, and back; nothing for a text that is not such an arrangement.
std::string CallColumnsText(const CallColumns& columns);
std::optional<CallColumns> ParseCallColumns(std::string_view text);

}  // namespace orvane
