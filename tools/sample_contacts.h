#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace orvane {

// A contact person as the host keeps one; numbers as people write them, empty where there is none.
struct SamplePerson {
  std::int32_t key = 0;
  std::string firstName;
  std::string lastName;
  std::string phone1;
  std::string phone2;
  std::string secretary;
  std::string mobile;
  std::string privateMobile;
  std::string privatePhone;
};

struct SampleCompany {
  std::int32_t key = 0;
  std::string name;
  std::string city;
  std::string headOffice;
  std::vector<SamplePerson> persons;
};

// A user of the host with his extension.
struct SampleUser {
  std::int32_t key = 0;
  std::string firstName;
  std::string lastName;
  std::string department;
  std::string extension;
};

struct SampleContacts {
  std::vector<SampleCompany> companies;
  std::vector<SampleUser> users;
};

// 15 invented companies with their people, and four users of the host. All outside numbers belong
// to the ranges that are kept free for films, so nobody's telephone rings.
SampleContacts DefaultContacts();

// The form in which the host stores a number for look-ups: international, digits only.
std::string HostRawNumber(const std::string& written);

}  // namespace orvane
