#include "sample_calls.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <random>
#include <vector>

namespace orvane {
namespace {

constexpr double kDays = 35;
constexpr double kOfficeOpens = 8.0 / 24;
constexpr double kOfficeHours = 10.0 / 24;
constexpr double kSecondsPerDay = 86400;

struct Party {
  bool external = false;
  std::string number;
  std::string company;
  std::string place;
  std::string person;
};

std::string Digits(const std::string& number) {
  std::string digits;
  for (const char c : number) {
    if (c >= '0' && c <= '9') digits += c;
  }
  return digits;
}

std::string LastFirst(const std::string& last, const std::string& first) {
  return first.empty() ? last : last + ", " + first;
}

// Everybody there is, and some whom nobody knows.
std::vector<Party> Parties(const SampleContacts& contacts) {
  std::vector<Party> parties;
  for (const SampleCompany& company : contacts.companies) {
    for (const SamplePerson& person : company.persons) {
      parties.push_back({true, Digits(person.phone1), company.name, company.city,
                         LastFirst(person.lastName, person.firstName)});
    }
  }
  for (const SampleUser& user : contacts.users) {
    parties.push_back({false, user.extension, "Intern", user.department,
                       LastFirst(user.lastName, user.firstName)});
  }
  parties.push_back({true, "01729925904", "<Nicht gelistet>", "", "Unbekannt"});
  parties.push_back({true, "", "<Keine Nummer>", "", ""});
  return parties;
}

// In the office's hours, from Monday to Friday. `part` of the calls, from 0 to 1, are newer; there
// are more of them the newer they are.
double CallTime(double now, double part) {
  const double moment = now - part * part * kDays;
  double day = std::floor(moment);
  const double inOffice = day + kOfficeOpens + (moment - day) * kOfficeHours;
  if (day >= std::floor(now)) return std::min(moment, inOffice);
  // Day 0 was a Saturday.
  const int sinceSaturday = static_cast<int>(std::fmod(day, 7.0));
  return inOffice - (sinceSaturday < 2 ? sinceSaturday + 1 : 0);
}

std::string Quoted(const std::string& text) {
  std::string quoted = "'";
  for (const char c : text) quoted.append(c == '\'' ? 2U : 1U, c);
  return quoted + "'";
}

std::string InsertStatement(const char* table, int id, double time, const Party& party) {
  std::array<char, 40> when{};
  std::snprintf(when.data(), when.size(), "%.10f",
                std::round(time * kSecondsPerDay) / kSecondsPerDay);
  return std::string("INSERT INTO ") + table + " (ID,Ext,Zeit,Firma,Ort,Person,Nr) VALUES (" +
         std::to_string(id) + "," + (party.external ? "-1" : "0") + "," + when.data() + "," +
         Quoted(party.company) + "," + Quoted(party.place) + "," + Quoted(party.person) + "," +
         (party.number.empty() ? "NULL" : Quoted(party.number)) + ");\n";
}

std::string TableScript(const char* table, const std::vector<Party>& parties, double now, int calls,
                        std::minstd_rand& random) {
  std::vector<double> times;
  times.reserve(static_cast<std::size_t>(calls));
  for (int call = 0; call < calls; ++call) {
    times.push_back(CallTime(now, (call + static_cast<double>(random() % 1000) / 1000) / calls));
  }
  std::sort(times.begin(), times.end());
  std::string script;
  for (std::size_t i = 0; i < times.size(); ++i) {
    script += InsertStatement(table, static_cast<int>(i) + 1, times[i],
                              parties[random() % parties.size()]);
  }
  return script;
}

}  // namespace

std::string SampleCallsScript(const SampleContacts& contacts, double now, int outgoing) {
  const std::vector<Party> parties = Parties(contacts);
  std::minstd_rand random(17);
  return TableScript("o", parties, now, outgoing, random) +
         TableScript("i", parties, now, outgoing * 2 / 3, random);
}

}  // namespace orvane
