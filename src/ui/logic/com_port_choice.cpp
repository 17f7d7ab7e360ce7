#include "ui/logic/com_port_choice.h"

#include "app/number_text.h"
#include "platform/text/text_tools.h"

namespace orvane {
namespace {

constexpr std::size_t kPrefixCharacters = 3;

}  // namespace

std::set<int> ChoosableComPorts(const std::vector<std::string>& names) {
  std::set<int> ports;
  for (const std::string& name : names) {
    const std::size_t prefix = FirstCharacters(name, kPrefixCharacters).size();
    const double number = LeadingNumber(std::string_view(name).substr(prefix));
    for (int port = 1; port <= kComPortChoices; ++port) {
      if (number == port) ports.insert(port);
    }
  }
  return ports;
}

}  // namespace orvane
