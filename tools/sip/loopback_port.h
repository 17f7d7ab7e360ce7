#pragma once

#include <sys/socket.h>

#include <cstdint>

namespace orvane {

// Ports of 127.0.0.1; `socketType` is SOCK_STREAM or SOCK_DGRAM.

// A port that nobody uses at the moment. Throws std::runtime_error when there is none.
std::uint16_t FreePort(int socketType);
// Somebody listens there.
bool IsTaken(int socketType, std::uint16_t port);

}  // namespace orvane
