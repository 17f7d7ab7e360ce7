#include "area_codes/area_code_sources.h"

#include <phonenumbers/geocoding/phonenumber_offline_geocoder.h>
#include <phonenumbers/phonenumberutil.h>
#include <unicode/locid.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <array>
#include <set>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "area_codes/place_name.h"
#include "ui/logic/number_classifier.h"

namespace orvane {
namespace {

namespace phone = i18n::phonenumbers;

constexpr int kGermany = 49;
constexpr int kNorthAmerica = 1;
// Without the leading 0.
constexpr std::size_t kLongestAreaCodeDigits = 5;
// A German number of common length, without the leading 0.
constexpr std::size_t kSampleDigits = 10;
// What the library calls the region of codes that belong to no country.
constexpr std::string_view kWorld = "001";

// Codes whose name is not that of their largest country.
constexpr std::array<std::pair<int, std::string_view>, 13> kNamedCodes{
    {{1, "USA/Kanada"},
     {7, "Russland/Kasachstan"},
     {800, "Internationales Freephone"},
     {808, "Internationaler Shared-Cost-Dienst"},
     {852, "Hongkong"},
     {853, "Macau"},
     {870, "Inmarsat"},
     {878, "Internationale persönliche Rufnummer"},
     {881, "Satellitentelefon"},
     {882, "Internationales Netz"},
     {883, "Internationales Netz"},
     {888, "Internationale Hilfsdienste"},
     {979, "Internationaler Premium-Dienst"}}};

const icu::Locale& German() {
  return icu::Locale::getGermany();
}

std::string RegionName(const std::string& region) {
  icu::UnicodeString name;
  icu::Locale("", region.c_str()).getDisplayCountry(German(), name);
  std::string utf8;
  name.toUTF8String(utf8);
  if (utf8.empty() || utf8 == region) throw std::runtime_error("no name for region " + region);
  return utf8;
}

phone::PhoneNumber NumberOf(int country, const std::string& national) {
  phone::PhoneNumber number;
  number.set_country_code(country);
  number.set_national_number(std::stoull(national));
  return number;
}

// Walks the tree of all prefixes. Asked for a bare prefix, the geocoder names the place of the
// longest area code that it begins with; where the name changes, a code ends. One code can stand
// inside another: 02129 is Haan, the rest of 0212 Solingen.
class GermanWalk {
 public:
  AreaCodes Run() {
    for (char digit = '1'; digit <= '9'; ++digit) Visit({digit}, {});
    return std::move(codes_);
  }

 private:
  void Visit(const std::string& prefix, const std::string& outerPlace) {
    const std::string place = PlaceOf(prefix);
    if (place != outerPlace) Add(prefix, PlaceName(place));
    if (prefix.size() == kLongestAreaCodeDigits) return;
    for (char digit = '0'; digit <= '9'; ++digit) Visit(prefix + digit, place);
  }

  // The geocoder may name a whole block of codes by its one place.
  void Add(const std::string& prefix, const std::string& name) {
    if (prefix.size() == kLongestAreaCodeDigits || IsAreaCode(prefix)) {
      codes_.push_back({"0" + prefix, name});
    } else {
      for (char digit = '0'; digit <= '9'; ++digit) codes_.push_back({"0" + prefix + digit, name});
    }
  }

  static bool IsAreaCode(const std::string& prefix) {
    std::string number = prefix + '2';
    number.resize(kSampleDigits, '1');
    return phone::PhoneNumberUtil::GetInstance()->GetLengthOfGeographicalAreaCode(
               NumberOf(kGermany, number)) == static_cast<int>(prefix.size());
  }

  std::string PlaceOf(const std::string& prefix) const {
    const std::string place =
        geocoder_.GetDescriptionForValidNumber(NumberOf(kGermany, prefix), German(), "DE");
    return place == country_ ? std::string() : place;
  }

  phone::PhoneNumberOfflineGeocoder geocoder_;
  std::string country_ = RegionName("DE");
  AreaCodes codes_;
};

std::string CountryName(int code) {
  const auto named = std::ranges::find(kNamedCodes, code, &std::pair<int, std::string_view>::first);
  if (named != kNamedCodes.end()) return std::string(named->second);
  std::string region;
  phone::PhoneNumberUtil::GetInstance()->GetRegionCodeForCountryCode(code, &region);
  if (region == kWorld) throw std::runtime_error("no name for code " + std::to_string(code));
  return RegionName(region);
}

std::string AmericanPlace(const std::string& areaCode) {
  const phone::PhoneNumber number = NumberOf(kNorthAmerica, areaCode + "2345678");
  std::string region;
  phone::PhoneNumberUtil::GetInstance()->GetRegionCodeForNumber(number, &region);
  // The one state among islands of their own.
  return region == "US" && areaCode == "808" ? "Hawaii" : RegionName(region);
}

}  // namespace

AreaCodes GermanAreaCodes() {
  return GermanWalk().Run();
}

AreaCodes CountryCodes() {
  std::set<int> codes;
  phone::PhoneNumberUtil::GetInstance()->GetSupportedCallingCodes(&codes);
  AreaCodes result;
  for (const int code : codes) result.push_back({std::to_string(code), CountryName(code)});
  return result;
}

AreaCodes AmericanAreaCodes() {
  AreaCodes result;
  for (const std::string_view code : kListedAmericanCodes) {
    result.push_back({std::string(code), AmericanPlace(std::string(code.substr(1)))});
  }
  return result;
}

}  // namespace orvane
