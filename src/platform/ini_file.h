#pragma once

#include <string>
#include <string_view>

namespace orvane {

// Size of the buffer an INI value is read into, in bytes; the last byte is the closing zero.
inline constexpr int kIniBufferBytes = 255;

// Reads values from a Windows INI file with the semantics of GetPrivateProfileStringA: section and
// key are not case-sensitive, blanks around names and values are dropped, one pair of single or
// double quotes around a value is taken off, lines that begin with ";" are comments, the first of
// several equal sections or keys counts.
class IniFile {
 public:
  virtual ~IniFile() = default;

  // `file` is a path as composed by the program, with "\". The value holds at most 254 bytes of the
  // file's ANSI text, returned as UTF-8; `fallback` (its trailing blanks dropped, cut alike) when
  // file, section or key is missing or unreadable. Throws IniError only when the system call itself
  // cannot be made.
  virtual std::string Read(std::string_view section, std::string_view key, std::string_view file,
                           std::string_view fallback) = 0;
};

}  // namespace orvane
