#pragma once

#include <string>

namespace orvane {

// The failures that every provider reports alike; each throws DatabaseError.
[[noreturn]] void ThrowObjectOpen();
[[noreturn]] void ThrowObjectClosed();
[[noreturn]] void ThrowNoCurrentRow();
[[noreturn]] void ThrowNoSuchField();
[[noreturn]] void ThrowProviderNotFound();

// What is wrong with a database file; `shownPath` is the path as the program composed it.
[[noreturn]] void ThrowFileMissing(const std::string& shownPath);
[[noreturn]] void ThrowFileUnreadable(const std::string& shownPath);
[[noreturn]] void ThrowFileNotRecognised(const std::string& shownPath, int nativeNumber = 0);
[[noreturn]] void ThrowFileExists(const std::string& shownPath);

}  // namespace orvane
