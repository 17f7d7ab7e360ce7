#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace orvane {

// The first page of a database file in Jet's own format, by which the file is told from others.
class JetHeader {
 public:
  static constexpr std::size_t kBytes = 4096;

  // Nothing when the bytes do not begin as a Jet file does. Less than kBytes are enough for that.
  static std::optional<JetHeader> Of(std::string_view firstBytes);

  // Jet 4, which is what the host writes; older and newer formats keep their password elsewhere.
  bool IsJet4() const;
  // Whether this opens the file: upper and lower case differ, and a file without a password takes
  // any. Only for Jet 4.
  bool AcceptsPassword(std::string_view utf8Password) const;

 private:
  explicit JetHeader(std::string page) : page_(std::move(page)) {}

  std::string page_;
};

// Throws DatabaseError unless the file is a Jet 4 file with this password. The path is as the
// program composed it.
void CheckJetFile(const std::string& shownPath, std::string_view utf8Password);

// The header of the file, if it can be read and is a Jet file.
std::optional<JetHeader> ReadJetHeader(const std::filesystem::path& file);

}  // namespace orvane
