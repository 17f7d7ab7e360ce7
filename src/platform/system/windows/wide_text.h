#pragma once

#include <string>
#include <string_view>

namespace orvane {

// UTF-8 to the system's UTF-16 and back. What is not valid becomes the replacement character; zero
// characters are kept.
std::wstring ToWide(std::string_view utf8);
std::string ToUtf8(std::wstring_view wide);

// UTF-8 to the code page of this system's byte functions and back. What it lacks becomes "?".
std::string ToSystemAnsi(std::string_view utf8);
std::string FromSystemAnsi(std::string_view bytes);

}  // namespace orvane
