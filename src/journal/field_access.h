#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/database.h"

namespace orvane {

// A field as text, null as empty. Throws as Recordset::Field.
std::string TextField(const Recordset& rows, std::string_view name);

// A field as whole number, null and other text as 0. Throws as Recordset::Field.
std::int64_t IntegerOf(const DbValue& value);

}  // namespace orvane
