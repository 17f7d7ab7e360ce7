#include "sip/loopback_port.h"

#include <netinet/in.h>
#include <unistd.h>

#include <optional>
#include <stdexcept>

namespace orvane {
namespace {

// Takes the port, or any if 0, for a moment; its number if that went well.
std::optional<std::uint16_t> Take(int socketType, std::uint16_t port) {
  const int handle = socket(AF_INET, socketType | SOCK_CLOEXEC, 0);
  if (handle < 0) throw std::runtime_error("no socket");
  if (socketType == SOCK_STREAM) {
    // Connections that are over but not forgotten do not count.
    const int yes = 1;
    setsockopt(handle, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
  }
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  address.sin_port = htons(port);
  socklen_t size = sizeof address;
  auto* const where = reinterpret_cast<sockaddr*>(&address);
  const bool taken = bind(handle, where, size) == 0 && getsockname(handle, where, &size) == 0;
  close(handle);
  return taken ? std::optional(ntohs(address.sin_port)) : std::nullopt;
}

}  // namespace

std::uint16_t FreePort(int socketType) {
  const auto port = Take(socketType, 0);
  if (!port) throw std::runtime_error("no free port");
  return *port;
}

bool IsTaken(int socketType, std::uint16_t port) {
  return !Take(socketType, port);
}

}  // namespace orvane
