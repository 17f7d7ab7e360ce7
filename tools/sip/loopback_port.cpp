#include "sip/loopback_port.h"

#include <netinet/in.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <fstream>
#include <random>
#include <stdexcept>
#include <string>

namespace orvane {
namespace {

// Below the range from which systems take the ports of outgoing connections.
constexpr int kFirstPort = 20'000;
constexpr int kLastPort = 32'000;
constexpr int kAttempts = 100;

bool CanBind(int socketType, std::uint16_t port) {
  const int handle = socket(AF_INET, socketType | SOCK_CLOEXEC, 0);
  if (handle < 0) throw std::runtime_error("no socket");
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  address.sin_port = htons(port);
  const bool bound = bind(handle, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
  close(handle);
  return bound;
}

}  // namespace

std::uint16_t FreePort() {
  std::random_device chance;
  std::uniform_int_distribution<int> anyPort(kFirstPort, kLastPort);
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    const auto port = static_cast<std::uint16_t>(anyPort(chance));
    if (CanBind(SOCK_STREAM, port) && CanBind(SOCK_DGRAM, port)) return port;
  }
  throw std::runtime_error("no free port");
}

bool IsTaken(int socketType, std::uint16_t port) {
  // Trying to bind would take the port from the program that is waited for, at the wrong moment.
  std::ifstream sockets(socketType == SOCK_STREAM ? "/proc/net/tcp" : "/proc/net/udp");
  std::array<char, 32> local{};
  std::snprintf(local.data(), local.size(), " 0100007F:%04X ", unsigned{port});
  const std::string listening = std::string(local.data()) + "00000000:0000 ";
  for (std::string line; std::getline(sockets, line);) {
    if (line.find(listening) != std::string::npos) return true;
  }
  return false;
}

}  // namespace orvane
