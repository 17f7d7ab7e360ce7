#include "platform/lines/windows/tapi32_errors.h"

#include <array>
#include <cstdio>
#include <string>

#include "platform/lines/line_service_provider.h"
#include "platform/lines/windows/tapi32_api.h"

namespace orvane {
namespace {

struct Description {
  std::uint32_t result;
  const char* text;
};

constexpr Description kDescriptions[] = {
    {LINEERR_ALLOCATED, "Die Leitung wird von einem anderen Programm benutzt."},
    {LINEERR_BADDEVICEID, "Die Leitung gibt es nicht."},
    {LINEERR_CALLUNAVAIL, "Die Leitung ist belegt."},
    {LINEERR_INUSE, "Die Leitung ist belegt."},
    {LINEERR_INVALADDRESS, "Die Nummer kann nicht gewählt werden."},
    {LINEERR_INVALCALLHANDLE, "Dieses Gespräch gibt es nicht."},
    {LINEERR_INVALLINEHANDLE, "Die Leitung ist nicht geöffnet."},
    {LINEERR_INVALMEDIAMODE, "Über diese Leitung kann nicht gesprochen werden."},
    {LINEERR_NODEVICE, "Das Gerät der Leitung ist nicht bereit."},
    {LINEERR_NODRIVER, "Der Treiber der Leitung fehlt."},
    {LINEERR_NOTOWNER, "Das Gespräch gehört einem anderen Programm."},
    {LINEERR_OPERATIONUNAVAIL, "Die Leitung bietet das nicht an."},
    {LINEERR_RESOURCEUNAVAIL, "Der Leitung fehlen die Mittel dafür."},
};

std::string DescriptionOf(std::uint32_t result) {
  for (const Description& known : kDescriptions) {
    if (known.result == result) return known.text;
  }
  std::array<char, 16> number{};
  std::snprintf(number.data(), number.size(), "0x%08X", static_cast<unsigned>(result));
  return std::string("Die Leitung meldet den Fehler ") + number.data() + ".";
}

}  // namespace

TapiError LineFailure(std::int32_t result) {
  return {result, DescriptionOf(static_cast<std::uint32_t>(result))};
}

std::int32_t Checked(std::int32_t result) {
  if (result < 0) throw LineFailure(result);
  return result;
}

}  // namespace orvane
