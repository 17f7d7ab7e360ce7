#include "platform/databases/dialect/jet_sql.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <initializer_list>

#include "platform/databases/dialect/jet_query.h"
#include "platform/databases/dialect/jet_tokens.h"

namespace orvane {
namespace {

using Tokens = std::vector<JetToken>;

constexpr std::array<std::string_view, 32> kKeywords{
    "SELECT", "DISTINCT", "FROM", "WHERE",  "AND",    "OR",   "NOT",    "IN",
    "LIKE",   "BETWEEN",  "IS",   "NULL",   "INNER",  "LEFT", "RIGHT",  "OUTER",
    "JOIN",   "ON",       "AS",   "ORDER",  "GROUP",  "BY",   "HAVING", "ASC",
    "DESC",   "INSERT",   "INTO", "VALUES", "UPDATE", "SET",  "DELETE", "TOP"};

constexpr std::array<std::string_view, 7> kFunctions{"FIX",   "CDBL", "MAX", "MIN",
                                                     "COUNT", "SUM",  "AVG"};

template <typename List>
bool IsOneOf(const JetToken& token, const List& list) {
  return std::any_of(list.begin(), list.end(),
                     [&token](std::string_view entry) { return token.Is(entry); });
}

bool IsOneOf(const JetToken& token, std::initializer_list<std::string_view> list) {
  return IsOneOf<std::initializer_list<std::string_view>>(token, list);
}

bool IsIdentifier(const JetToken& token) {
  return token.kind == JetTokenKind::kName ||
         (token.kind == JetTokenKind::kWord && !IsOneOf(token, kKeywords));
}

// The token at the index, or one that equals no word and no symbol behind the end.
JetToken At(const Tokens& tokens, std::size_t index) {
  return index < tokens.size() ? tokens[index] : JetToken{};
}

void DropEndMark(Tokens& tokens) {
  if (!tokens.empty() && tokens.back().Is(";")) tokens.pop_back();
  for (const JetToken& token : tokens) {
    if (token.Is(";")) {
      ThrowJetSyntaxError("Syntaxfehler: Zeichen gefunden nach Ende der SQL-Anweisung.");
    }
  }
}

// The "(" that follows an identifier opens a function's argument, except behind the table of an
// INSERT. Every function takes exactly one argument.
void CheckFunctions(const Tokens& tokens) {
  for (std::size_t i = 0; i + 1 < tokens.size(); ++i) {
    const bool insertTable = i == 2 && tokens[0].Is("INSERT");
    if (!IsIdentifier(tokens[i]) || !tokens[i + 1].Is("(") || insertTable) continue;
    if (!IsOneOf(tokens[i], kFunctions)) {
      ThrowJetSyntaxError("Syntaxfehler: Undefinierte Funktion '" + tokens[i].text +
                          "' in Ausdruck.");
    }
    int depth = 1;
    for (std::size_t k = i + 2; k < tokens.size() && depth > 0; ++k) {
      if (tokens[k].Is("(")) ++depth;
      if (tokens[k].Is(")")) --depth;
      if (depth == 1 && tokens[k].Is(",")) {
        ThrowJetSyntaxError("Syntaxfehler: Falsche Anzahl von Argumenten für die Funktion '" +
                            tokens[i].text + "'.");
      }
    }
  }
}

// "==" and "->" are two symbols of the dialect each, and operators in SQLite.
void CheckOperators(const Tokens& tokens) {
  for (std::size_t i = 1; i < tokens.size(); ++i) {
    const bool comparison = IsOneOf(tokens[i], {"=", "<", ">", "<=", ">=", "<>"});
    if (comparison && IsOneOf(tokens[i - 1], {"=", "<", ">", "<=", ">=", "<>", "+", "-", "*"})) {
      ThrowJetSyntaxError("Syntaxfehler (fehlender Operator) in Abfrageausdruck.");
    }
  }
}

// SQLite would take a text for a name, an alias or a number where Jet sees an error.
void CheckTexts(const Tokens& tokens) {
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    if (tokens[i].kind != JetTokenKind::kText) continue;
    const bool valueMayStart =
        i > 0 &&
        IsOneOf(tokens[i - 1], {"(", ",", "=", "<", ">", "<=", ">=", "<>", "WHERE", "AND", "OR",
                                "NOT", "LIKE", "BETWEEN", "SELECT", "DISTINCT", "ON", "HAVING"});
    if (!valueMayStart || IsOneOf(At(tokens, i + 1), {"+", "-", "*", ".", "("})) {
      ThrowJetSyntaxError("Syntaxfehler (fehlender Operator) in Abfrageausdruck.");
    }
  }
}

// One statement is one SELECT, and DISTINCT stands nowhere else.
void CheckSelects(const Tokens& tokens) {
  for (std::size_t i = 1; i < tokens.size(); ++i) {
    const bool misplaced =
        tokens[i].Is("SELECT") || (tokens[i].Is("DISTINCT") && !(i == 1 && tokens[0].Is("SELECT")));
    if (misplaced) ThrowJetSyntaxError("Syntaxfehler in der SELECT-Anweisung.");
  }
}

// Takes "TOP n" out of a query; the result is n, or 0 without one.
std::int32_t TakeTop(Tokens& tokens) {
  const std::size_t at = At(tokens, 1).Is("DISTINCT") ? 2 : 1;
  if (!At(tokens, at).Is("TOP")) return 0;
  const JetToken number = At(tokens, at + 1);
  const char* const end = number.text.data() + number.text.size();
  std::int32_t count = 0;
  const auto [stop, error] = std::from_chars(number.text.data(), end, count);
  if (number.kind != JetTokenKind::kNumber || error != std::errc() || stop != end || count < 1 ||
      At(tokens, at + 2).Is(",")) {
    ThrowJetSyntaxError("Syntaxfehler in der SELECT-Anweisung nach TOP.");
  }
  const auto first = tokens.begin() + static_cast<std::ptrdiff_t>(at);
  tokens.erase(first, first + 2);
  return count;
}

// INSERT INTO table [(column, ...)] VALUES (literal, ...), and nothing else.
class InsertCheck {
 public:
  explicit InsertCheck(const Tokens& tokens) : tokens_(tokens) {}

  void Run() {
    Expect("INSERT");
    Expect("INTO");
    Identifier();
    if (Accept("(")) {
      do {
        Identifier();
      } while (Accept(","));
      Expect(")");
    }
    Expect("VALUES");
    Expect("(");
    do {
      Literal();
    } while (Accept(","));
    Expect(")");
    if (at_ != tokens_.size()) Refuse();
  }

 private:
  [[noreturn]] static void Refuse() {
    ThrowJetSyntaxError("Syntaxfehler in der INSERT INTO-Anweisung.");
  }
  bool Accept(std::string_view wanted) {
    if (!At(tokens_, at_).Is(wanted)) return false;
    ++at_;
    return true;
  }
  void Expect(std::string_view wanted) {
    if (!Accept(wanted)) Refuse();
  }
  void Identifier() {
    if (!IsIdentifier(At(tokens_, at_))) Refuse();
    ++at_;
  }
  void Literal() {
    const bool negative = Accept("-");
    const JetToken token = At(tokens_, at_);
    const bool number = token.kind == JetTokenKind::kNumber;
    const bool other = token.kind == JetTokenKind::kText || token.kind == JetTokenKind::kDate ||
                       IsOneOf(token, {"NULL", "TRUE", "FALSE"});
    if (!number && (negative || !other)) Refuse();
    ++at_;
  }

  const Tokens& tokens_;
  std::size_t at_ = 0;
};

void CheckUpdate(const Tokens& tokens) {
  const bool joined = std::any_of(tokens.begin(), tokens.end(),
                                  [](const JetToken& token) { return token.Is("FROM"); });
  if (!IsIdentifier(At(tokens, 1)) || !At(tokens, 2).Is("SET") || joined) {
    ThrowJetSyntaxError("Syntaxfehler in UPDATE-Anweisung.");
  }
}

void CheckDelete(const Tokens& tokens) {
  const bool whole = tokens.size() == 3;
  if (!At(tokens, 1).Is("FROM") || !IsIdentifier(At(tokens, 2)) ||
      !(whole || At(tokens, 3).Is("WHERE"))) {
    ThrowJetSyntaxError("Syntaxfehler in FROM-Klausel.");
  }
}

std::string QuotedText(std::string_view content) {
  std::string result = "'";
  for (const char c : content) result.append(c == '\'' ? 2U : 1U, c);
  return result + '\'';
}

// Everything that is not a word of the dialect becomes a name in brackets, so that no keyword of
// SQLite's own comes to life.
std::string SqliteWord(const JetToken& token, bool isFunction) {
  if (token.Is("TRUE")) return "-1";
  if (token.Is("FALSE")) return "0";
  if (isFunction || IsOneOf(token, kKeywords)) return token.text;
  return "[" + token.text + "]";
}

TranslatedStatement Emit(const Tokens& tokens) {
  TranslatedStatement result;
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    const JetToken& token = tokens[i];
    if (i > 0) result.sql += ' ';
    switch (token.kind) {
      case JetTokenKind::kText:
        result.sql += QuotedText(token.text);
        break;
      case JetTokenKind::kDate:
        result.sql += '?';
        result.dates.push_back(token.date);
        break;
      case JetTokenKind::kName:
        result.sql += "[" + token.text + "]";
        break;
      case JetTokenKind::kWord:
        result.sql += SqliteWord(token, IsOneOf(token, kFunctions) && At(tokens, i + 1).Is("("));
        break;
      case JetTokenKind::kNumber:
      case JetTokenKind::kSymbol:
        result.sql += token.text;
        break;
    }
  }
  return result;
}

struct CheckedStatement {
  Tokens tokens;  // without TOP
  std::int32_t top = 0;
};

CheckedStatement Check(std::string_view sql) {
  CheckedStatement result{SplitJetTokens(sql)};
  Tokens& tokens = result.tokens;
  DropEndMark(tokens);
  if (At(tokens, 0).Is("SELECT")) {
    result.top = TakeTop(tokens);
  } else if (At(tokens, 0).Is("INSERT")) {
    InsertCheck(tokens).Run();
  } else if (At(tokens, 0).Is("UPDATE")) {
    CheckUpdate(tokens);
  } else if (At(tokens, 0).Is("DELETE")) {
    CheckDelete(tokens);
  } else {
    ThrowJetSyntaxError(
        "Syntaxfehler: Unzulässige SQL-Anweisung; 'DELETE', 'INSERT', 'SELECT' oder 'UPDATE' "
        "erwartet.");
  }
  CheckSelects(tokens);
  CheckFunctions(tokens);
  CheckOperators(tokens);
  CheckTexts(tokens);
  return result;
}

std::string OrderOf(const CheckedStatement& statement, std::string_view lengthFunction) {
  if (!statement.tokens[0].Is("SELECT")) return {};
  return ImpliedOrder(statement.tokens, statement.top > 0, lengthFunction);
}

std::string ServerToken(const JetToken& token, bool isFunction) {
  if (token.kind == JetTokenKind::kText) {
    const bool plain = std::all_of(token.text.begin(), token.text.end(),
                                   [](char c) { return static_cast<unsigned char>(c) < 0x80; });
    return (plain ? "" : "N") + QuotedText(token.text);
  }
  const bool isDate = token.kind == JetTokenKind::kDate;
  if (isDate || (isFunction && IsOneOf(token, {"FIX", "CDBL"}))) {
    ThrowJetSyntaxError("Syntaxfehler: Auf dem Server nicht verfügbar.");
  }
  const bool isPlain = token.kind == JetTokenKind::kNumber || token.kind == JetTokenKind::kSymbol;
  if (isPlain || isFunction) return token.text;
  if (token.kind == JetTokenKind::kWord && IsOneOf(token, kKeywords)) return token.text;
  std::string name = "\"";
  for (const char c : token.text) name.append(c == '"' ? 2U : 1U, c);
  return name + '"';
}

}  // namespace

TranslatedStatement TranslateJetSql(std::string_view sql) {
  const CheckedStatement statement = Check(sql);
  TranslatedStatement result = Emit(statement.tokens);
  std::string ending = OrderOf(statement, "LENGTH");
  if (statement.top > 0) ending += " LIMIT " + std::to_string(statement.top);
  if (const auto indexed = IndexedJoin(statement.tokens)) {
    result.indexedSql = Emit(*indexed).sql + ending;
  }
  result.sql += ending;
  return result;
}

std::string TranslateJetSqlForServer(std::string_view sql) {
  const CheckedStatement statement = Check(sql);
  const auto split = statement.top > 0 ? std::nullopt : SplitJoin(statement.tokens);
  const Tokens& tokens = split ? *split : statement.tokens;
  std::string result;
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    const bool isFunction = IsOneOf(tokens[i], kFunctions) && At(tokens, i + 1).Is("(");
    if (i > 0) result += ' ';
    result += ServerToken(tokens[i], isFunction);
    const bool topPlace = i == (At(tokens, 1).Is("DISTINCT") ? 1U : 0U);
    if (statement.top > 0 && topPlace) result += " TOP " + std::to_string(statement.top);
  }
  return result + OrderOf(statement, "LEN");
}

std::string OrderedJetSql(std::string_view sql) {
  const std::string order = OrderOf(Check(sql), "LEN");
  const std::size_t end = sql.find_last_not_of("; \t\r\n");
  return std::string(sql.substr(0, end + 1)) + order;
}

}  // namespace orvane
