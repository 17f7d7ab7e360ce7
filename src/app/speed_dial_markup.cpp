#include "app/speed_dial_markup.h"

namespace orvane {

std::string SpeedDialItemMarkup(std::string_view name, SpeedDialKind kind) {
  return "<?xml version='1.0' encoding='windows-1252'?><StackPanel Orientation='Horizontal'>"
         "<Image VerticalAlignment='Center' Source='" +
         std::to_string(static_cast<int>(kind)) +
         "'/><TextBlock Padding = '4' VerticalAlignment='Center'>" + std::string(name) +
         "</TextBlock></StackPanel>";
}

}  // namespace orvane
