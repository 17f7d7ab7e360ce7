#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/errors.h"

namespace orvane {

// One record of what a driver says about a failure.
struct OdbcDiagnosis {
  std::string state;  // five characters
  std::int32_t native = 0;
  std::string text;
};

// What failures are about.
struct OdbcSubject {
  std::string user;      // whom the server refuses
  std::string database;  // what a driver is missing for
  bool isFile = false;   // a file refuses its password and not a user
};

// What every engine reports for a connection that failed.
DatabaseError OdbcConnectError(const std::vector<OdbcDiagnosis>& diagnoses,
                               const OdbcSubject& subject);
// The same for a statement.
DatabaseError OdbcStatementError(const std::vector<OdbcDiagnosis>& diagnoses,
                                 const OdbcSubject& subject);

}  // namespace orvane
