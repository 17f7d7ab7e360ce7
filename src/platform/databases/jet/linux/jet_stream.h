#pragma once

#include <cstdint>
#include <string_view>

// What the program that reads Jet files writes to its standard output:
//
//   kMagic, then items until kEnd:
//   kTable  text name, uint16 number of columns, for each: uint8 kind, text name
//   kRow    for each column of the last table: kNull, or kInteger int64, kReal double, kText text
//   kEnd    the last byte; without it the file was not read whole
//
// A text is its uint32 length in bytes and that many bytes of UTF-8; numbers are in this machine's
// own byte order, because both ends are.
namespace orvane::jet_stream {

inline constexpr std::string_view kMagic = "OJS1";
inline constexpr char kTable = 'T';
inline constexpr char kRow = 'R';
inline constexpr char kEnd = 'E';

inline constexpr char kNull = 'n';
inline constexpr char kInteger = 'i';
inline constexpr char kReal = 'd';
inline constexpr char kText = 't';

inline constexpr std::uint16_t kMaxColumns = 255;
inline constexpr std::uint32_t kMaxTextBytes = 65'536;

}  // namespace orvane::jet_stream
