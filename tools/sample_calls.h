#pragma once

#include <string>

#include "sample_contacts.h"

namespace orvane {

// Statements that fill an empty journal with the calls of the last five weeks before `now` (days
// since 1899-12-30): `outgoing` calls to the contacts and users, and two for each three of them
// that came in. The same arguments give the same calls.
std::string SampleCallsScript(const SampleContacts& contacts, double now, int outgoing);

}  // namespace orvane
