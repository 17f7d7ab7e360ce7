#include "platform/system/windows/wide_text.h"

#include <windows.h>

namespace orvane {
namespace {

std::wstring Widen(UINT codePage, std::string_view text) {
  const int bytes = static_cast<int>(text.size());
  const int length = MultiByteToWideChar(codePage, 0, text.data(), bytes, nullptr, 0);
  std::wstring wide(static_cast<std::size_t>(length), L'\0');
  MultiByteToWideChar(codePage, 0, text.data(), bytes, wide.data(), length);
  return wide;
}

std::string Narrow(UINT codePage, std::wstring_view wide) {
  const int units = static_cast<int>(wide.size());
  const int length =
      WideCharToMultiByte(codePage, 0, wide.data(), units, nullptr, 0, nullptr, nullptr);
  std::string text(static_cast<std::size_t>(length), '\0');
  WideCharToMultiByte(codePage, 0, wide.data(), units, text.data(), length, nullptr, nullptr);
  return text;
}

}  // namespace

std::wstring ToWide(std::string_view utf8) {
  return Widen(CP_UTF8, utf8);
}

std::string ToUtf8(std::wstring_view wide) {
  return Narrow(CP_UTF8, wide);
}

std::string ToSystemAnsi(std::string_view utf8) {
  return Narrow(CP_ACP, ToWide(utf8));
}

std::string FromSystemAnsi(std::string_view bytes) {
  return ToUtf8(Widen(CP_ACP, bytes));
}

}  // namespace orvane
