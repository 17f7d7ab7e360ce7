#include "demo_host/dial_message.h"

#include <initializer_list>

namespace orvane {
namespace {

// Fields and parameters must not hold the characters that part them.
std::string Parameter(std::string text) {
  for (char& c : text) {
    if (c == '|' || c == '~') c = ' ';
  }
  return text;
}

std::string Parameters(std::initializer_list<std::string> values) {
  std::string text;
  for (const auto& value : values) text += Parameter(value) + "|";
  text.pop_back();
  return text;
}

std::string Prefix(std::int32_t userNumber) {
  return "TX:" + std::to_string(userNumber) + "~";
}

}  // namespace

std::string DialMessage(std::int32_t userNumber, const SampleCompany& company) {
  const auto personKey = company.persons.empty() ? 0 : company.persons.front().key;
  return Prefix(userNumber) + "Dial~" +
         Parameters({"1", NumberToDial(company), company.name, PersonToDial(company), company.city,
                     std::to_string(company.key), std::to_string(personKey)});
}

std::string KillMessage(std::int32_t userNumber) {
  return Prefix(userNumber) + "Dial~0|KillMySelf|";
}

std::string NumberToDial(const SampleCompany& company) {
  return company.persons.empty() ? company.headOffice : company.persons.front().phone1;
}

std::string PersonToDial(const SampleCompany& company) {
  if (company.persons.empty()) return {};
  const auto& person = company.persons.front();
  return person.lastName + ", " + person.firstName;
}

}  // namespace orvane
