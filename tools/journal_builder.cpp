// Creates the empty call journal that is delivered with the program.

#include <exception>
#include <filesystem>
#include <iostream>

#include "journal_schema.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: orvane-journal-builder <file>\n";
    return 2;
  }
  try {
    const std::filesystem::path file = argv[1];
    // Building again replaces the file, and never leaves half of one.
    std::filesystem::path fresh = file;
    std::filesystem::remove(fresh += ".new");
    orvane::CreateJournalFile(fresh);
    std::filesystem::rename(fresh, file);
  } catch (const std::exception& error) {
    std::cerr << "orvane-journal-builder: " << error.what() << '\n';
    return 1;
  }
  return 0;
}
