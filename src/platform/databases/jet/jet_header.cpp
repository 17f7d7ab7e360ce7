#include "platform/databases/jet/jet_header.h"

#include <QString>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <fstream>
#include <limits>
#include <numeric>

#include "platform/databases/database_errors.h"
#include "platform/text/native_path.h"

namespace orvane {
namespace {

constexpr std::string_view kSignature("\0\1\0\0Standard Jet DB\0", 20);
constexpr std::size_t kVersionAt = 0x14;
constexpr char kVersionJet4 = 1;
// From here on the page is hidden by a key that is the same for every file.
constexpr std::size_t kHiddenFrom = 0x18;
constexpr std::size_t kHiddenBytes = 128;
constexpr std::array<std::uint8_t, 4> kHeaderKey{0xC7, 0xDA, 0x39, 0x6B};
// The password, UTF-16 and filled up with zeros, is hidden once more by the day of creation.
constexpr std::size_t kPasswordAt = 0x42;
constexpr std::size_t kPasswordUnits = 20;
constexpr std::size_t kCreationDateAt = 0x72;

std::uint8_t Byte(char c) {
  return static_cast<std::uint8_t>(c);
}

// RC4, which turns hidden bytes into plain ones and back.
void ApplyHeaderKey(std::string& page) {
  std::array<std::uint8_t, 256> state{};
  std::iota(state.begin(), state.end(), std::uint8_t{0});
  std::uint8_t j = 0;
  for (std::size_t i = 0; i < state.size(); ++i) {
    j = static_cast<std::uint8_t>(j + state[i] + kHeaderKey[i % kHeaderKey.size()]);
    std::swap(state[i], state[j]);
  }
  j = 0;
  for (std::size_t n = 0; n < kHiddenBytes; ++n) {
    const auto i = static_cast<std::uint8_t>(n + 1);
    j = static_cast<std::uint8_t>(j + state[i]);
    std::swap(state[i], state[j]);
    char& c = page[kHiddenFrom + n];
    c = static_cast<char>(Byte(c) ^ state[static_cast<std::uint8_t>(state[i] + state[j])]);
  }
}

template <typename Integer>
Integer LittleEndian(const std::string& page, std::size_t at) {
  Integer result = 0;
  for (std::size_t i = sizeof(Integer); i-- > 0;) {
    result = static_cast<Integer>((result << 8) | Byte(page[at + i]));
  }
  return result;
}

// The whole days of the creation date, as the four bytes that hide the password.
std::uint32_t CreationDay(const std::string& page) {
  const auto date = std::bit_cast<double>(LittleEndian<std::uint64_t>(page, kCreationDateAt));
  constexpr double kMost = std::numeric_limits<std::int32_t>::max();
  if (!(std::abs(date) <= kMost)) return 0;
  return static_cast<std::uint32_t>(static_cast<std::int32_t>(date));
}

std::u16string StoredPassword(const std::string& page) {
  const std::uint32_t mask = CreationDay(page);
  std::u16string result;
  for (std::size_t i = 0; i < kPasswordUnits; ++i) {
    const auto half = static_cast<std::uint16_t>(i % 2 == 0 ? mask : mask >> 16);
    const auto unit =
        static_cast<char16_t>(LittleEndian<std::uint16_t>(page, kPasswordAt + 2 * i) ^ half);
    if (unit == 0) break;
    result += unit;
  }
  return result;
}

std::u16string Utf16(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size())).toStdU16String();
}

}  // namespace

std::optional<JetHeader> JetHeader::Of(std::string_view firstBytes) {
  if (!firstBytes.starts_with(kSignature)) return std::nullopt;
  std::string page(firstBytes.substr(0, kBytes));
  page.resize(kBytes);
  ApplyHeaderKey(page);
  return JetHeader(std::move(page));
}

bool JetHeader::IsJet4() const {
  return page_[kVersionAt] == kVersionJet4;
}

bool JetHeader::AcceptsPassword(std::string_view utf8Password) const {
  const std::u16string stored = StoredPassword(page_);
  return stored.empty() || stored == Utf16(utf8Password);
}

void CheckJetFile(const std::string& shownPath, std::string_view utf8Password) {
  const std::optional<JetHeader> header = ReadJetHeader(NativePath(shownPath));
  if (!header) throw ErrorOf(DatabaseFailure::kFileUnreadable, shownPath);
  if (!header->IsJet4()) throw ErrorOf(DatabaseFailure::kFileNotRecognised, shownPath);
  if (!header->AcceptsPassword(utf8Password)) {
    throw ErrorOf(DatabaseFailure::kPasswordRefused, shownPath);
  }
}

std::optional<JetHeader> ReadJetHeader(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  std::string page(JetHeader::kBytes, '\0');
  stream.read(page.data(), static_cast<std::streamsize>(page.size()));
  page.resize(static_cast<std::size_t>(stream.gcount()));
  return JetHeader::Of(page);
}

}  // namespace orvane
