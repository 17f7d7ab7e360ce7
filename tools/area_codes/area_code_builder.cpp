// Creates the area-code table that is delivered with the program.

#include <exception>
#include <filesystem>
#include <iostream>

#include "area_codes/area_code_file.h"
#include "area_codes/area_code_sources.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: orvane-area-code-builder <file>\n";
    return 2;
  }
  try {
    const std::filesystem::path file = argv[1];
    // Building again replaces the file, and never leaves half of one.
    std::filesystem::path fresh = file;
    std::filesystem::remove(fresh += ".new");
    orvane::AreaCodes codes = orvane::GermanAreaCodes();
    for (const auto& more : {orvane::CountryCodes(), orvane::AmericanAreaCodes()}) {
      codes.insert(codes.end(), more.begin(), more.end());
    }
    orvane::CreateAreaCodeFile(fresh, codes);
    std::filesystem::rename(fresh, file);
  } catch (const std::exception& error) {
    std::cerr << "orvane-area-code-builder: " << error.what() << '\n';
    return 1;
  }
  return 0;
}
