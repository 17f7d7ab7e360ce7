#pragma once

#include <filesystem>

namespace orvane {

// Creates a contact file with the four host tables `Adressen`, `AdrDetail`, `Benutzer` and
// `Grp_Abt`, empty. Throws std::runtime_error when the file exists or cannot be written.
void CreateContactFile(const std::filesystem::path& file);

// The same with invented contacts: 15 addresses, 18 persons, 6 users, 5 departments. Numbers are in
// the host's normalised form: country code, no leading zero, digits only. Beside ordinary contacts:
//   49211445566          two persons of address 2
//   496987654300         head office of address 12, which has no person
//   49893344550          address 10, without a company name
//   494088990012         address 11, without a place
//   493514567890         address 13, company name of more than 99 characters
//   49221778899          address 5, an apostrophe in the company's and in the person's name
//   497119876540         address 14, double quotes in the company's name
//   496131223344         person 401, the same number in two columns
// Extensions: 217 Brandt, Jonas (Einkauf), 218, 100; 301 without last name, 12 in a department
// without a name, 44 in a department that does not exist.
void CreateDemoContactFile(const std::filesystem::path& file);

}  // namespace orvane
