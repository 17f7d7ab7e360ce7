// Times the look-up of numbers in a contact file, opened and closed each time as the dialer does.
// The first line is the first look-up, with nothing read yet; then one line for each of the others.
// Times are nanoseconds.
//
//   orvane-bench-lookup <contact file> <number>...
//   orvane-bench-lookup server:<name> <number>...

#include <QCoreApplication>
#include <chrono>
#include <iostream>
#include <string>

#include "platform/databases/host_databases.h"
#include "platform/native/native.h"

namespace {

constexpr int kRounds = 200;

std::string Statement(const std::string& number) {
  std::string condition;
  for (const char* const column :
       {"AdrDetail.RawTel1", "AdrDetail.RawTel2", "AdrDetail.RawSekTel", "AdrDetail.RawHandy",
        "AdrDetail.RawHandyprv", "AdrDetail.RawTelprv", "Adressen.RawZentrTel"}) {
    if (!condition.empty()) condition += " OR ";
    condition += std::string(column) + " IN('0" + number + "','" + number + "')";
  }
  return "SELECT Adressen.AdrID,Adressen.Firma1,Adressen.Ort,AdrDetail.DetID,AdrDetail.VName,"
         "AdrDetail.NName FROM Adressen LEFT JOIN AdrDetail ON Adressen.AdrID=AdrDetail.AdrID "
         "WHERE " +
         condition;
}

// Nanoseconds; 0 when nothing was found, which is no look-up to be timed.
std::int64_t TimeOf(orvane::DatabaseConnection& contacts, const std::string& statement) {
  const auto begin = std::chrono::steady_clock::now();
  contacts.Open();
  const bool found = !contacts.Execute(statement)->AtEnd();
  contacts.Close();
  const std::chrono::nanoseconds time = std::chrono::steady_clock::now() - begin;
  return found ? time.count() : 0;
}

void Select(orvane::DatabaseConnection& contacts, std::string_view source) {
  constexpr std::string_view kServer = "server:";
  const bool isServer = source.starts_with(kServer);
  if (isServer) source.remove_prefix(kServer.size());
  contacts.SetProvider(isServer ? "SQLOLEDB.1" : "Microsoft.Jet.OLEDB.4.0");
  contacts.SetProperty("Data Source", source);
  contacts.SetProperty("Jet OLEDB:Database Password", "4rdxtz8w");
  contacts.SetProperty("Initial Catalog", "Talmix");
  contacts.SetProperty("User ID", "orvane");
  contacts.SetProperty("Password", "geheim;}");
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  if (argc < 3) return 2;
  orvane::ImmediateWork work;
  const orvane::DriverThreads threads;
  orvane::HostDatabases databases(orvane::native::Databases(work, threads));
  const auto contacts = databases.NewConnection();
  Select(*contacts, argv[1]);
  for (int round = 0; round < kRounds; ++round) {
    std::cout << TimeOf(*contacts, Statement(argv[2 + round % (argc - 2)])) << '\n';
  }
  return 0;
}
