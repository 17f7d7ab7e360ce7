#include "area_codes/place_name.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <string_view>
#include <utility>

#include "platform/text/text_tools.h"

namespace orvane {
namespace {

using Replacement = std::pair<std::string_view, std::string_view>;

// Names that no rule mends.
constexpr std::array<Replacement, 9> kWholeNames{
    {{"Lengenfeld Unterm Stein", "Lengenfeld unterm Stein"},
     {"Mülsen Skt Jacob", "Mülsen St. Jacob"},
     {"Neukirchen bei Hl Blut", "Neukirchen beim Heiligen Blut"},
     {"Pfaffendorfb Beeskow", "Pfaffendorf bei Beeskow"},
     {"Reit Im Winkl", "Reit im Winkl"},
     {"Rot Am See-Brettheim", "Rot am See-Brettheim"},
     {"Schönbrunn bei Hildburghaus", "Schönbrunn bei Hildburghausen"},
     {"Tangstedt Bz Hamburg", "Tangstedt (Bezirk Hamburg)"},
     {"Weil Der Stadt", "Weil der Stadt"}}};

constexpr std::array<Replacement, 13> kAbbreviations{{{"Altm", "Altmark"},
                                                      {"Anh", "Anhalt"},
                                                      {"Bergstr", "Bergstraße"},
                                                      {"Emsl", "Emsland"},
                                                      {"Han", "Hannover"},
                                                      {"Hohenz", "Hohenzollern"},
                                                      {"NL", "Niederlausitz"},
                                                      {"OL", "Oberlausitz"},
                                                      {"Rheinhessenen", "Rheinhessen"},
                                                      {"Schwarzw", "Schwarzwald"},
                                                      {"Siegerl", "Siegerland"},
                                                      {"Vorpom", "Vorpommern"},
                                                      {"Westferwald", "Westerwald"}}};

constexpr std::array<Replacement, 3> kSharpS{
    {{"Gross", "Groß"}, {"Preuss", "Preuß"}, {"Weissen", "Weißen"}}};

// What stands behind a name to tell it from others of its kind, between blanks.
constexpr std::string_view kQualifiers =
    " Ahr Alb Aller Allgäu Altmark Angeln Anhalt Auetal Baden Bayern Bergstraße Biggesee Bode"
    " Bodensee Börde Brandenburg Breisgau Chiemsee Darß Deister Dill Dinkel Dithmarschen Donau"
    " Dosse Dumme Dümmer Eder Efze Eichsfeld Eider Eifel Elbe Elster Ems Emsland Enzkreis Erft"
    " Erzgebirge Felda Forggensee Geiseltal Hannover Harz Hase Havel Hegau Heilbad Helme Hessen"
    " Hochrhein Hochschwarzwald Hochwald Hohentwiel Hohenzollern Holstein Hotzenwald Hunsrück Husum"
    " Iller Jadebusen Jagst Kaiserstuhl Knüll Kurort Kyffhäuser Lahn Lauenburg Lausitz Lech Leine"
    " Lippe Loisach Luhe Luppe Mangfall Mark Milde Mittelfranken Mittelholstein Mosel Mulde Müritz"
    " Nahe Neckar Niederbayern Niederelbe Niederlausitz Niederrhein Niedersachsen Nordheide Nordsee"
    " Oberbayern Oberfranken Oberlausitz Oberpfalz Odenwald Oder Ohm Oldenburg Ortenaukreis Oste"
    " Ostfriesland Ostsee Ostseebad Paar Pfalz Pfrimm Poel Rhein Rheingau Rheinhessen Rheinland"
    " Rhön Riß Rottal Rügen Ruhr Saale Saalkreis Saar Sachsen Sachsen-Anhalt Salzach Sauerland"
    " Schlei Schutter Schwaben Schwarzwald Seebad Seeheilbad Sieg Siegerland Simssee Soonwald Spree"
    " Spreewald Südharz Südsauerland Taunus Thüringen Unstrut Unterfranken Unterweser Upland Usedom"
    " Vechte Vils Vogtland Vorpommern Wasserkuppe Wendland Werra Wertach Weser Westerwald Westfalen"
    " Wetterau Wohra Wümme Württemberg ";

constexpr std::array<std::string_view, 4> kQualifiersOfTwoWords{
    " Märkische Schweiz", " Sächsische Schweiz", " Starnberger See", " Thüringer Wald"};
// A name of two words that begins with one of these is whole: "Bad Elster", "Markt Schwaben".
constexpr std::array<std::string_view, 2> kOpenWords{"Bad", "Markt"};

std::string InBrackets(const std::string& name, std::size_t blank) {
  return name.substr(0, blank) + " (" + name.substr(blank + 1) + ')';
}

// With "ß" and "St.", and without "Kreis" or "Stadt" behind the name.
std::string Spelled(std::string name) {
  name = name.substr(0, name.find(" Kreis "));
  if (name.ends_with(" Stadt")) name.resize(name.rfind(' '));
  if (name.starts_with("St ")) name.insert(2, ".");
  for (const auto& [from, to] : kSharpS) name = ReplaceAll(name, from, to);
  return name;
}

std::string WithoutAbbreviation(std::string name, std::size_t lastWord) {
  const auto known = std::ranges::find(kAbbreviations, std::string_view(name).substr(lastWord),
                                       &Replacement::first);
  if (known != kAbbreviations.end()) name.replace(lastWord, name.npos, known->second);
  return name;
}

// "Weiden in der Oberpfalz" is one name, "Zell Oberpfalz" is a name and where it is.
bool EndsInQualifier(const std::string& name, std::size_t blank) {
  const std::string head = name.substr(0, blank);
  if (std::ranges::find(kOpenWords, head) != kOpenWords.end()) return false;
  const std::size_t headWord = head.rfind(' ') + 1;
  const bool article = std::islower(static_cast<unsigned char>(head[headWord])) != 0;
  return !article && kQualifiers.find(name.substr(blank) + ' ') != kQualifiers.npos;
}

}  // namespace

std::string PlaceName(const std::string& geocoderName) {
  const auto known = std::ranges::find(kWholeNames, geocoderName, &Replacement::first);
  if (known != kWholeNames.end()) return std::string(known->second);

  std::string name = Spelled(geocoderName);
  for (const std::string_view qualifier : kQualifiersOfTwoWords) {
    if (name.ends_with(qualifier)) return InBrackets(name, name.size() - qualifier.size());
  }
  const std::size_t blank = name.rfind(' ');
  if (blank == name.npos) return name;
  const std::string full = WithoutAbbreviation(name, blank + 1);
  return EndsInQualifier(full, blank) ? InBrackets(full, blank) : full;
}

}  // namespace orvane
