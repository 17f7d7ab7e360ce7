// Turns a call journal that Jet has written into one that this system can write to.
//
//   orvane-jet-umwandeln <TelList.fdb> [Kennwort]
//
// The old file stays beside the new one, under its name with ".jet" behind it.

#include <fcntl.h>
#include <unistd.h>

#include <QCoreApplication>
#include <array>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <utility>

#include "journal_schema.h"
#include "platform/databases/host_databases.h"
#include "platform/databases/jet/jet_header.h"
#include "platform/errors.h"
#include "platform/native/native.h"
#include "platform/system/linux/file_descriptor.h"

namespace {

namespace fs = std::filesystem;
using orvane::DbValue;

constexpr const char* kUsage = "Aufruf: orvane-jet-umwandeln <TelList.fdb> [Kennwort]\n";
constexpr const char* kJournalPassword = "vnar";
constexpr const char* kColumns = "ID,Ext,Zeit,Firma,Ort,Person,Nr,AdrID,DUID,Dauer";
constexpr int kColumnCount = 10;

std::string Quoted(const std::string& text) {
  std::string result = "'";
  for (const char c : text) result.append(c == '\'' ? 2U : 1U, c);
  return result + "'";
}

// The shortest text that is read back as the same number.
std::string Digits(double number) {
  std::array<char, 64> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), number);
  return {text.data(), end.ptr};
}

std::string Literal(const DbValue& value) {
  if (const auto* whole = std::get_if<std::int64_t>(&value)) return std::to_string(*whole);
  if (const auto* real = std::get_if<double>(&value)) return Digits(*real);
  if (const auto* text = std::get_if<std::string>(&value)) return Quoted(*text);
  return "NULL";
}

// Statements that insert all rows of one table.
std::string Rows(orvane::DatabaseConnection& journal, const std::string& table) {
  std::string script;
  const auto rows = journal.Execute(std::string("SELECT ") + kColumns + " FROM " + table);
  for (; !rows->AtEnd(); rows->MoveNext()) {
    script += "INSERT INTO " + table + " (" + kColumns + ") VALUES (";
    for (int i = 0; i < kColumnCount; ++i) script += (i > 0 ? "," : "") + Literal(rows->Field(i));
    script += ");\n";
  }
  return script;
}

std::string AllCalls(const fs::path& file, const std::string& password) {
  orvane::ImmediateWork work;
  const orvane::DriverThreads threads;
  orvane::HostDatabases databases(orvane::native::Databases(work, threads));
  const auto journal = databases.NewConnection();
  journal->SetMode(orvane::DbMode::kRead);
  journal->SetProvider("Microsoft.Jet.OLEDB.4.0");
  journal->SetProperty("Data Source", fs::absolute(file).string());
  journal->SetProperty("Jet OLEDB:Database Password", password);
  journal->Open();
  return Rows(*journal, "o") + Rows(*journal, "i");
}

bool IsJetFile(const fs::path& file) {
  return orvane::ReadJetHeader(file).has_value();
}

std::string Content(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  std::string content{std::istreambuf_iterator<char>(stream), {}};
  if (!stream) throw std::runtime_error("Die Datei " + file.string() + " ist nicht lesbar.");
  return content;
}

// A file that goes when it was not put in its place.
class Draft {
 public:
  explicit Draft(fs::path path) : path_(std::move(path)) { fs::remove(path_); }
  ~Draft() {
    std::error_code ignored;
    fs::remove(path_, ignored);
  }
  Draft(const Draft&) = delete;
  Draft& operator=(const Draft&) = delete;
  const fs::path& Path() const { return path_; }
  // Whole or not at all, also when the machine stops in between.
  void PutInPlace(const fs::path& place) const {
    const orvane::FileDescriptor written(open(path_.c_str(), O_RDONLY | O_CLOEXEC));
    if (!written.Valid() || fsync(written.Get()) != 0) {
      throw std::runtime_error("Die Datei " + path_.string() + " lässt sich nicht schreiben.");
    }
    fs::rename(path_, place);
  }

 private:
  fs::path path_;
};

// Keeps a copy of the journal; false when an earlier run, which came no further, did it already.
bool Keep(const fs::path& file, const fs::path& kept) {
  if (fs::exists(kept)) {
    if (Content(kept) == Content(file)) return false;
    throw std::runtime_error("Es gibt schon eine andere Datei " + kept.string() + ".");
  }
  const Draft draft(kept.string() + ".neu");
  fs::copy_file(file, draft.Path());
  draft.PutInPlace(kept);
  return true;
}

// The journal is replaced in one step, by what the kept copy holds. Until then nothing but the copy
// has changed, and the copy goes again when the step fails.
void Convert(const fs::path& given, const std::string& password) {
  if (!fs::exists(given)) throw std::runtime_error("Die Datei gibt es nicht.");
  const fs::path file = fs::canonical(given);
  if (!IsJetFile(file)) throw std::runtime_error("Die Datei ist keine Jet-Datenbank.");
  const fs::path kept = file.string() + ".jet";
  const bool isNew = Keep(file, kept);
  try {
    const Draft fresh(file.string() + ".neu");
    orvane::CreateJournalFile(fresh.Path(), AllCalls(kept, password));
    fs::permissions(fresh.Path(), fs::status(file).permissions());
    if (Content(kept) != Content(file)) {
      throw std::runtime_error(
          "Ein anderes Programm hat gerade hineingeschrieben. Bitte noch einmal versuchen.");
    }
    fresh.PutInPlace(file);
  } catch (...) {
    std::error_code ignored;
    if (isNew) fs::remove(kept, ignored);
    throw;
  }
  std::cout << "Umgewandelt: " << file.string() << "\nDie alte Datei: " << kept.string() << '\n';
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  if (argc < 2 || argc > 3) {
    std::cerr << kUsage;
    return 2;
  }
  try {
    Convert(argv[1], argc == 3 ? argv[2] : kJournalPassword);
    return 0;
  } catch (const std::exception& error) {
    std::cerr << argv[1] << ": " << error.what() << '\n';
    return 1;
  }
}
