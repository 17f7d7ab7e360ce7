#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <utility>

namespace orvane {

// A failure as the interface in question reports it: a number that the logic looks at and a German
// description that the user may see. Adapters throw one of the classes below; no exception crosses
// into an event handler.
class PlatformError : public std::runtime_error {
 public:
  PlatformError(std::int32_t number, const std::string& description)
      : std::runtime_error(description), number_(number) {}

  // The number that the interface stands for would report (an HRESULT, a control's error number).
  std::int32_t Number() const { return number_; }
  // UTF-8, for people.
  std::string Description() const { return what(); }

 private:
  std::int32_t number_;
};

// A database refused to open or to execute; NativeNumber is the database's own code, 0 if unknown.
class DatabaseError : public PlatformError {
 public:
  DatabaseError(std::int32_t number, const std::string& description, std::int32_t nativeNumber = 0,
                bool ofStorage = false)
      : PlatformError(number, description), nativeNumber_(nativeNumber), ofStorage_(ofStorage) {}
  std::int32_t NativeNumber() const { return nativeNumber_; }
  // What the engine or its driver says of it, in its own language; empty when it says nothing.
  const std::string& NativeText() const { return nativeText_; }
  DatabaseError& Saying(std::string nativeText) {
    nativeText_ = std::move(nativeText);
    return *this;
  }
  // Whether what keeps the data is in the way (locked, full, write-protected, damaged, missing, out
  // of reach) and not what was asked of it, which may well succeed another time.
  bool OfStorage() const { return ofStorage_; }

 private:
  std::int32_t nativeNumber_;
  bool ofStorage_ = false;
  std::string nativeText_;
};

// Numbers and German descriptions that the run-time library gives to failures that have nothing to
// do with one interface.
inline constexpr std::int32_t kErrorPathAccess = 75;
inline constexpr std::int32_t kErrorObjectNotSet = 91;

// A file or folder that is there and cannot be used; `path` as the program composes it.
inline PlatformError PathAccessError(const std::string& path) {
  return {kErrorPathAccess, "Fehler beim Zugriff auf Pfad/Datei '" + path + "'"};
}

// An object that is asked for something before it was made or after it was given up.
template <typename Error>
Error ObjectNotSet() {
  return Error(kErrorObjectNotSet, "Objektvariable nicht festgelegt");
}

class SerialError : public PlatformError {
  using PlatformError::PlatformError;
};

class TapiError : public PlatformError {
  using PlatformError::PlatformError;
};

class RegistryError : public PlatformError {
  using PlatformError::PlatformError;
};

class IniError : public PlatformError {
  using PlatformError::PlatformError;
};

}  // namespace orvane
