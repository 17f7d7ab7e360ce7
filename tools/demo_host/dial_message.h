#pragma once

#include <cstdint>
#include <string>

#include "sample_contacts.h"

namespace orvane {

// The host's command to prepare an outside call to a company: to its first contact person, or to
// its head office when it has none. UTF-8.
std::string DialMessage(std::int32_t userNumber, const SampleCompany& company);

// The host's command that ends the dialer.
std::string KillMessage(std::int32_t userNumber);

// The number that DialMessage asks to dial, as people write it.
std::string NumberToDial(const SampleCompany& company);

// "Last, First" of the person that DialMessage names, empty when there is none.
std::string PersonToDial(const SampleCompany& company);

}  // namespace orvane
