#include "platform/serial/serial_errors.h"

#include "platform/serial_control.h"

namespace orvane {
namespace {

struct Entry {
  std::int32_t number;
  const char* description;
};

constexpr Entry kEntries[] = {
    {kSerialInvalidOpenPort, "Vorgang bei geöffnetem Anschluss ungültig"},
    {kSerialInvalidPort, "Ungültige Anschlussnummer"},
    {kSerialPortInUse, "Anschluss bereits geöffnet"},
    {kSerialNotOpen, "Das Gerät ist nicht geöffnet"},
    {kSerialNoOpenPort, "Vorgang nur bei geöffnetem Anschluss gültig"},
    {kSerialDeviceError, "Fehler beim Lesen des Kommunikationsgeräts"},
};

}  // namespace

SerialError MakeSerialError(std::int32_t number) {
  for (const Entry& entry : kEntries) {
    if (entry.number == number) return {number, entry.description};
  }
  return {number, "Unbekannter Fehler"};
}

}  // namespace orvane
