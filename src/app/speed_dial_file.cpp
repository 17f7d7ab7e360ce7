#include "app/speed_dial_file.h"

#include "app/file_text.h"
#include "platform/text/ansi.h"
#include "platform/text/text_tools.h"

namespace orvane {
namespace {

constexpr std::string_view kBlockSeparator = "¿";
constexpr std::string_view kFieldSeparator{&kSpeedDialFieldSeparator, 1};

std::string FilePath(const std::string& userPath) {
  return userPath + "res\\Kurzwahl.dat";
}

SpeedDialRows ParseBlock(const std::string& block) {
  SpeedDialRows rows;
  int field = 0;
  for (SpeedDialRow& row : rows) {
    row.name = GetField(block, ++field, kFieldSeparator);
    row.number = GetField(block, ++field, kFieldSeparator);
  }
  return rows;
}

std::string BlockText(const SpeedDialRows& rows) {
  std::string text;
  for (const SpeedDialRow& row : rows) {
    for (const std::string* field : {&row.name, &row.number}) {
      text += *field;
      text += kSpeedDialFieldSeparator;
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

bool IsEmptyBlock(const SpeedDialRows& rows) {
  return rows.front().name.empty() && rows.front().number == kPipeEnd;
}

std::string SpeedDialFileText(const SpeedDialMemory& memory) {
  return BlockText(memory.internalRows) + std::string(kBlockSeparator) +
         BlockText(memory.externalRows);
}

SpeedDialMemory ReadSpeedDialFile(const std::string& userPath) {
  return ParseSpeedDialFile(DecodeAnsi(ReadWholeFile(FilePath(userPath))));
}

std::unique_ptr<FileReplacement> ReplaceSpeedDialFile(const std::string& userPath,
                                                      const SpeedDialMemory& memory) {
  return std::make_unique<FileReplacement>(FilePath(userPath),
                                           EncodeAnsi(SpeedDialFileText(memory)));
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
