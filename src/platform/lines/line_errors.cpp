#include "platform/lines/line_errors.h"

#include <array>
#include <cstdio>
#include <string>

#include "platform/tapi_control.h"

namespace orvane {
namespace {

struct Entry {
  std::uint32_t number;
  const char* description;
};

constexpr Entry kEntries[] = {
    {0x80000001U, "Die Leitung wird von einem anderen Programm benutzt."},
    {static_cast<std::uint32_t>(kLineErrorBadDevice), "Die Leitung gibt es nicht."},
    {static_cast<std::uint32_t>(kLineErrorCallUnavailable), "Die Leitung ist belegt."},
    {0x8000000FU, "Die Leitung ist belegt."},
    {static_cast<std::uint32_t>(kLineErrorInvalidAddress), "Die Nummer kann nicht gewählt werden."},
    {static_cast<std::uint32_t>(kLineErrorInvalidCall), "Dieses Gespräch gibt es nicht."},
    {static_cast<std::uint32_t>(kLineErrorInvalidLine), "Die Leitung ist nicht geöffnet."},
    {0x8000002FU, "Über diese Leitung kann nicht gesprochen werden."},
    {0x80000042U, "Das Gerät der Leitung ist nicht bereit."},
    {0x80000043U, "Der Treiber der Leitung fehlt."},
    {0x80000046U, "Das Gespräch gehört einem anderen Programm."},
    {static_cast<std::uint32_t>(kLineErrorOperationUnavailable),
     "Die Leitung bietet das nicht an."},
    {0x8000004BU, "Der Leitung fehlen die Mittel dafür."},
};

std::string DescriptionOf(std::uint32_t number) {
  for (const Entry& entry : kEntries) {
    if (entry.number == number) return entry.description;
  }
  std::array<char, 16> digits{};
  std::snprintf(digits.data(), digits.size(), "0x%08X", static_cast<unsigned>(number));
  return std::string("Die Leitung meldet den Fehler ") + digits.data() + ".";
}

}  // namespace

TapiError MakeLineError(std::int32_t number) {
  return {number, DescriptionOf(static_cast<std::uint32_t>(number))};
}

}  // namespace orvane
