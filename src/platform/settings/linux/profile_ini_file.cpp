#include "platform/settings/linux/profile_ini_file.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <optional>

#include "platform/system/linux/file_descriptor.h"
#include "platform/text/ansi.h"
#include "platform/text/native_path.h"
#include "platform/text/text_tools.h"

namespace orvane {
namespace {

constexpr std::size_t kLargestFileBytes = 4UL * 1024 * 1024;

std::optional<std::string> ReadFile(const std::filesystem::path& path) {
  // Non-blocking, so that a pipe of that name cannot hold the program.
  const FileDescriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  struct stat status {};
  if (!file.Valid() || fstat(file.Get(), &status) != 0 || !S_ISREG(status.st_mode)) {
    return std::nullopt;
  }
  std::string bytes(std::min(static_cast<std::size_t>(status.st_size), kLargestFileBytes), '\0');
  std::size_t filled = 0;
  while (filled < bytes.size()) {
    const ssize_t count = read(file.Get(), bytes.data() + filled, bytes.size() - filled);
    if (count < 0) return std::nullopt;
    if (count == 0) break;
    filled += static_cast<std::size_t>(count);
  }
  bytes.resize(filled);
  return bytes;
}

// The end-of-file mark of old editors counts as a blank.
constexpr std::string_view kBlanks = " \t\v\f\x1A";

std::string_view WithoutBlanks(std::string_view text) {
  return Trimmed(text, kBlanks);
}

std::string_view TrimmedEnd(std::string_view text) {
  return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

// In the ANSI code page, where letters of both cases have one byte.
bool SameName(std::string_view a, std::string_view b) {
  return a.size() == b.size() && LowerLatin(DecodeAnsi(a)) == LowerLatin(DecodeAnsi(b));
}

// Takes the next line off the text: without its end, without blanks around it.
std::string_view NextLine(std::string_view& text) {
  const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  return WithoutBlanks(line);
}

std::string_view Unquoted(std::string_view value) {
  const bool quoted = value.size() >= 2 && (value.front() == '"' || value.front() == '\'') &&
                      value.back() == value.front();
  return quoted ? value.substr(1, value.size() - 2) : value;
}

std::optional<std::string_view> FindValue(std::string_view text, std::string_view section,
                                          std::string_view key) {
  bool inside = false;
  while (!text.empty()) {
    const std::string_view line = NextLine(text);
    if (line.empty() || line.front() == ';') continue;
    const std::size_t bracket = line.front() == '[' ? line.rfind(']') : std::string_view::npos;
    if (bracket != std::string_view::npos) {
      if (inside) return std::nullopt;
      inside = SameName(WithoutBlanks(line.substr(1, bracket - 1)), section);
      continue;
    }
    const std::size_t equals = line.find('=');
    if (!inside || equals == std::string_view::npos) continue;
    if (SameName(TrimmedEnd(line.substr(0, equals)), key))
      return WithoutBlanks(line.substr(equals + 1));
  }
  return std::nullopt;
}

// What fits the caller's buffer; a zero byte ends the text.
std::string FromBuffer(std::string_view ansi) {
  ansi = ansi.substr(0, ansi.find('\0'));
  return DecodeAnsi(ansi.substr(0, kIniBufferBytes - 1));
}

}  // namespace

std::string ProfileIniFile::Read(std::string_view section, std::string_view key,
                                 std::string_view file, std::string_view fallback) {
  const auto text = ReadFile(NativePath(file));
  const std::string ansiSection = EncodeAnsi(section);
  const std::string ansiKey = EncodeAnsi(key);
  const auto value =
      text ? FindValue(*text, WithoutBlanks(ansiSection), WithoutBlanks(ansiKey)) : std::nullopt;
  if (value) return FromBuffer(Unquoted(*value));
  const std::string ansiFallback = EncodeAnsi(fallback);
  return FromBuffer(TrimmedEnd(ansiFallback));
}

}  // namespace orvane
