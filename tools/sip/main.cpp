// Runs a telephone and a far end for the SIP lines until its input ends.
//
//   orvane-sip-demo <folder for their files>
#include <exception>
#include <iostream>
#include <string>

#include "sip/sip_demo.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "orvane-sip-demo <folder>\n";
    return 2;
  }
  try {
    const orvane::SipDemo demo(argv[1]);
    // Whoever started this reads the port, so it has to leave at once.
    std::cout << demo.ControlPort() << " " << demo.Account("anna") << std::endl;
    for (std::string line; std::getline(std::cin, line);) {
    }
    return 0;
  } catch (const std::exception& error) {
    std::cerr << "orvane-sip-demo: " << error.what() << "\n";
    return 1;
  }
}
