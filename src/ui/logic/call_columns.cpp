#include "ui/logic/call_columns.h"

#include <algorithm>
#include <charconv>

namespace orvane {
namespace {

constexpr int kSmallestWidth = 16;
constexpr int kLargestWidth = 2000;

// Takes a number and the mark behind it off the text; nothing when it does not begin so.
std::optional<int> TakeNumber(std::string_view& text, char mark) {
  int number = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || stop == end || *stop != mark) return std::nullopt;
  text.remove_prefix(static_cast<std::size_t>(stop - text.data()) + 1);
  return number;
}

std::optional<CallColumn> TakeColumn(std::string_view& text, char mark) {
  const auto number = TakeNumber(text, mark);
  if (!number || *number <= 0 || *number >= kCallColumns) return std::nullopt;
  return static_cast<CallColumn>(*number);
}

bool IsShown(const CallColumns& columns, CallColumn column) {
  return std::any_of(columns.shown.begin(), columns.shown.end(),
                     [column](const auto& entry) { return entry.column == column; });
}

}  // namespace

bool SameArrangement(const CallColumns& a, CallColumns b) {
  if (!a.shown.empty() && !b.shown.empty()) b.shown.back().width = a.shown.back().width;
  return a == b;
}

std::string CallColumnsText(const CallColumns& columns) {
  std::string text = std::to_string(static_cast<int>(columns.sortedBy)) + ":" +
                     std::to_string(columns.descending ? 1 : 0) + ";";
  for (const auto& [column, width] : columns.shown) {
    text += std::to_string(static_cast<int>(column)) + ":" + std::to_string(width) + ";";
  }
  return text;
}

std::optional<CallColumns> ParseCallColumns(std::string_view text) {
  const auto sortedBy = TakeColumn(text, ':');
  const auto descending = TakeNumber(text, ';');
  if (!sortedBy || !descending) return std::nullopt;
  CallColumns columns{{}, *sortedBy, *descending != 0};
  while (!text.empty()) {
    const auto column = TakeColumn(text, ':');
    const auto width = TakeNumber(text, ';');
    if (!column || !width || IsShown(columns, *column)) return std::nullopt;
    columns.shown.push_back({*column, std::clamp(*width, kSmallestWidth, kLargestWidth)});
  }
  if (columns.shown.size() != kCallColumns - 1) return std::nullopt;
  return columns;
}

}  // namespace orvane
