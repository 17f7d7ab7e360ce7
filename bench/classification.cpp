// Times the classification of a key, the table opened and closed each time and nothing remembered,
// beside the plain engine opening, asking and closing the same file. One line for each of the
// keys: both times in nanoseconds.
//
//   orvane-bench-classification <VPB.rgt>

#include <sqlite3.h>

#include <array>
#include <chrono>
#include <iostream>
#include <string>
#include <vector>

#include "platform/databases/sqlite/sqlite_services.h"
#include "ui/logic/number_classifier.h"

namespace {

constexpr int kRounds = 2000;

struct Key {
  const char* number;
  const char* statement;
};
// Numbers as they are while they are typed, found and not found.
constexpr std::array<Key, 5> kKeys{
    {{"021", "SELECT Ort FROM VW WHERE VW IN('021','021','021')"},
     {"02114", "SELECT Ort FROM VW WHERE VW IN('0211','02114','02114')"},
     {"0330565", "SELECT Ort FROM VW WHERE VW IN('0330','03305','033056')"},
     {"004312", "SELECT Ort FROM VW WHERE VW IN('43','431','4312')"},
     {"0018761", "SELECT Ort FROM VW WHERE VW IN('18','187','1876')"}}};

template <typename Action>
std::int64_t Nanoseconds(const Action& action) {
  const auto begin = std::chrono::steady_clock::now();
  action();
  return std::chrono::nanoseconds(std::chrono::steady_clock::now() - begin).count();
}

void Classify(const std::string& number, orvane::DatabaseConnection& table) {
  orvane::NumberClassifier().ClassifyNumber(number, number.starts_with("00"), &table);
}

void AskEngine(const std::string& file, const char* statement) {
  sqlite3* database = nullptr;
  sqlite3_open_v2(file.c_str(), &database, SQLITE_OPEN_READONLY, nullptr);
  sqlite3_exec(database, statement, nullptr, nullptr, nullptr);
  sqlite3_close(database);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  const std::string file = argv[1];
  const auto table = orvane::SqliteServices().NewConnection();
  table->SetMode(orvane::DbMode::kRead);
  table->SetProvider("Microsoft.Jet.OLEDB.4.0");
  table->SetProperty("Data Source", file);
  for (int round = 0; round < kRounds; ++round) {
    const Key& key = kKeys[static_cast<std::size_t>(round) % kKeys.size()];
    const auto dialer = Nanoseconds([&] { Classify(key.number, *table); });
    const auto engine = Nanoseconds([&] { AskEngine(file, key.statement); });
    std::cout << dialer << ' ' << engine << '\n';
  }
  return 0;
}
