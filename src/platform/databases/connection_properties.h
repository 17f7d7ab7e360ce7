#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/database.h"

namespace orvane {

// Provider, mode and properties of a connection, and their form as a connection string:
// "name=value" pairs parted by ";". Names are not case-sensitive; unknown ones are kept.
class ConnectionProperties {
 public:
  // Throws DatabaseError kDbErrorFailed when a quote is not closed or a pair has no name.
  static ConnectionProperties Parse(std::string_view text);

  void SetMode(DbMode mode) { mode_ = mode; }
  DbMode Mode() const { return mode_; }
  void SetProvider(std::string_view provider) { provider_ = provider; }
  const std::string& Provider() const { return provider_; }

  // "Provider" and "Mode" are understood here too. Throws DatabaseError kDbErrorNoSuchField for a
  // name that no connection string can hold: empty, or with "=", ";" or a quote.
  void Set(std::string_view name, std::string_view value);
  // Empty when it was never set.
  std::string Get(std::string_view name) const;

  // The text that Parse reads back. "Password" is left out unless "Persist Security Info" is true,
  // so that a stored connection string does not keep it.
  std::string ToString() const;

 private:
  std::string provider_;
  DbMode mode_ = DbMode::kUnknown;
  std::vector<std::pair<std::string, std::string>> values_;
};

}  // namespace orvane
