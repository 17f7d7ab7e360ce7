#include "sample_contacts.h"

#include <string_view>

namespace orvane {
namespace {

constexpr std::string_view kHomePrefix = "49";

SamplePerson Person(std::int32_t key, const char* firstName, const char* lastName,
                    const char* phone1, const char* mobile = "") {
  SamplePerson person;
  person.key = key;
  person.firstName = firstName;
  person.lastName = lastName;
  person.phone1 = phone1;
  person.mobile = mobile;
  return person;
}

std::vector<SampleCompany> Companies() {
  return {
      {47,
       "Havelwerk Maschinenbau GmbH",
       "Berlin",
       "030 / 23125-0",
       {Person(12, "Katharina", "Lindner", "030 / 23125-101", "0171 / 3920011"),
        Person(13, "Jörg", "Böhmer", "030 / 23125-102")}},
      {48,
       "Rheinkontor Spedition AG",
       "Köln",
       "0221 / 4710-100",
       {Person(14, "Aylin", "Yildirim", "0221 / 4710-111"),
        Person(15, "Peter", "Schmitz", "0221 / 4710-111")}},
      {49,
       "Muster & Söhne GmbH",
       "Frankfurt am Main",
       "069 / 90009-0",
       {Person(16, "Hans", "Meier", "069 / 90009-217", "0172 / 9925904")}},
      {50,
       "Alsterlicht Verlag KG",
       "Hamburg",
       "040 / 66969-0",
       {Person(17, "Wiebke", "Petersen", "040 / 66969-120")}},
      {51,
       "Isarquell Getränke GmbH",
       "München",
       "089 / 99998-0",
       {Person(18, "Xaver", "Huber", "089 / 99998-140", "0176 / 04069017")}},
      {52,
       "Spreebogen Architekten",
       "Berlin",
       "030 / 23125-200",
       {Person(19, "Jonas", "Brandt", "030 / 23125-210")}},
      {53,
       "Domblick Versicherungsmakler OHG",
       "Köln",
       "0221 / 4710-200",
       {Person(20, "Beate", "Küpper", "0221 / 4710-222", "0174 / 9091317")}},
      {54,
       "Taunusblick Klinikbedarf GmbH",
       "Frankfurt am Main",
       "069 / 90009-300",
       {Person(21, "Dr. Ulrike", "Weiß", "069 / 90009-310")}},
      {55,
       "Elbkai Logistik GmbH & Co. KG",
       "Hamburg",
       "040 / 66969-300",
       {Person(22, "Malte", "Jensen", "040 / 66969-330")}},
      {56,
       "Feldmochinger Feinmechanik",
       "München",
       "089 / 99998-400",
       {Person(23, "Zoë", "Ölschläger", "089 / 99998-410")}},
      {57,
       "Kanzlei Graefe & Partner",
       "Berlin",
       "030 / 23125-300",
       {Person(24, "Friederike", "Graefe", "030 / 23125-301", "0152 / 28817386")}},
      {58,
       "Mainbrücke Software GmbH",
       "Frankfurt am Main",
       "069 / 90009-500",
       {Person(25, "Emre", "Aydin", "069 / 90009-510")}},
      {59, "Hanseatische Kaffeerösterei", "Hamburg", "040 / 66969-500", {}},
      {60,
       "Colonia Druck und Medien GmbH",
       "Köln",
       "0221 / 4710-500",
       {Person(26, "Tobias", "Groß", "0221 / 4710-511")}},
      {61,
       "Würmtal Gartenbau",
       "München",
       "089 / 99998-600",
       {Person(27, "Anneliese", "Moosbauer", "089 / 99998-610")}},
  };
}

}  // namespace

SampleContacts DefaultContacts() {
  return {Companies(),
          {{17, "Sabine", "Krüger", "Vertrieb", "217"},
           {18, "Jonas", "Brandt", "Einkauf", "218"},
           {19, "Mehmet", "Öztürk", "Service", "219"},
           {20, "", "Empfang", "Verwaltung", "10"}}};
}

std::string HostRawNumber(const std::string& written) {
  std::string digits;
  for (const char c : written) {
    if (c >= '0' && c <= '9') digits += c;
  }
  if (digits.empty()) return {};
  if (written.front() == '+') return digits;
  if (digits.starts_with("00")) return digits.substr(2);
  return std::string(kHomePrefix) + (digits.front() == '0' ? digits.substr(1) : digits);
}

}  // namespace orvane
