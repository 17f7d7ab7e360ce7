#include "ui/logic/speed_dial_file.h"

#include "app/init_settings.h"
#include "platform/text/ansi.h"
#include "platform/text/text_tools.h"

namespace orvane {
namespace {

using Rows = std::array<SpeedDialRow, kSpeedDialRows>;

constexpr std::string_view kBlockSeparator = "¿";
constexpr std::string_view kFieldSeparator = "|";

Rows ParseBlock(const std::string& block) {
  Rows rows;
  int field = 0;
  for (SpeedDialRow& row : rows) {
    row.name = GetField(block, ++field, kFieldSeparator);
    row.number = GetField(block, ++field, kFieldSeparator);
  }
  return rows;
}

std::string BlockText(const Rows& rows) {
  std::string text;
  for (const SpeedDialRow& row : rows) {
    for (const std::string* field : {&row.name, &row.number}) {
      text += *field;
      text += kFieldSeparator;
    }
  }
  return text;
}

}  // namespace

SpeedDialMemory ParseSpeedDialFile(std::string_view text) {
  if (text.empty()) return {};
  return {ParseBlock(GetField(text, 1, kBlockSeparator)),
          ParseBlock(GetField(text, 2, kBlockSeparator))};
}

std::string SpeedDialFileText(const SpeedDialMemory& memory) {
  return BlockText(memory.internalRows) + std::string(kBlockSeparator) +
         BlockText(memory.externalRows);
}

std::string UnstorableCharacter(std::string_view text) {
  while (!text.empty()) {
    const std::string character = FirstCharacters(text, 1);
    if (DecodeAnsi(EncodeAnsi(character)) != character) return character;
    text.remove_prefix(character.size());
  }
  return {};
}

}  // namespace orvane
