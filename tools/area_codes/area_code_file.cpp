#include "area_codes/area_code_file.h"

#include "sqlite_script.h"

namespace orvane {
namespace {

constexpr const char* kTable =
    "CREATE TABLE VW (VW TEXT NOT NULL PRIMARY KEY, Ort TEXT) STRICT, WITHOUT ROWID";

std::string Quoted(const std::string& text) {
  std::string result = "'";
  for (const char c : text) result.append(c == '\'' ? 2U : 1U, c);
  return result + '\'';
}

}  // namespace

void CreateAreaCodeFile(const std::filesystem::path& file, const AreaCodes& codes) {
  SqliteScript script(file);
  script.Run(kTable);
  for (const AreaCode& code : codes) {
    script.Run("INSERT INTO VW (VW, Ort) VALUES (" + Quoted(code.prefix) + ',' +
               Quoted(code.place) + ')');
  }
  script.Finish();
}

}  // namespace orvane
