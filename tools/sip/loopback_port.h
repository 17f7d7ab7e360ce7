#pragma once

#include <sys/socket.h>

#include <cstdint>

namespace orvane {

// Ports of 127.0.0.1.

// A port that nobody uses at the moment, for streams and datagrams alike. Somebody else may take it
// before the caller does. Throws std::runtime_error when there is none.
std::uint16_t FreePort();
// Somebody listens there; `socketType` is SOCK_STREAM or SOCK_DGRAM.
bool IsTaken(int socketType, std::uint16_t port);

}  // namespace orvane
