#include "platform/databases/dialect/jet_query.h"

#include <algorithm>
#include <initializer_list>

#include "platform/databases/connection_properties.h"
#include "platform/text/text_tools.h"

namespace orvane {
namespace {

using Tokens = std::vector<JetToken>;

bool IsName(const JetToken& token) {
  return token.kind == JetTokenKind::kWord || token.kind == JetTokenKind::kName;
}

bool Has(const Tokens& tokens, std::string_view word) {
  return std::any_of(tokens.begin(), tokens.end(),
                     [word](const JetToken& token) { return token.Is(word); });
}

// Reads a query's tokens one after the other.
class Reader {
 public:
  explicit Reader(const Tokens& tokens) : tokens_(tokens) {}

  bool AtEnd() const { return at_ >= tokens_.size(); }
  bool NextIs(std::string_view wanted) const { return !AtEnd() && tokens_[at_].Is(wanted); }
  bool Accept(std::string_view wanted) {
    if (!NextIs(wanted)) return false;
    ++at_;
    return true;
  }
  bool Accept(std::initializer_list<std::string_view> wanted) {
    return std::all_of(wanted.begin(), wanted.end(),
                       [this](std::string_view word) { return Accept(word); });
  }
  std::optional<JetToken> Name() {
    if (AtEnd() || !IsName(tokens_[at_])) return std::nullopt;
    return tokens_[at_++];
  }
  bool Value() {
    const bool isValue = !AtEnd() && (tokens_[at_].kind == JetTokenKind::kText ||
                                      tokens_[at_].kind == JetTokenKind::kNumber);
    at_ += isValue ? 1 : 0;
    return isValue;
  }
  // "(value, ...)"
  bool ValueList() {
    if (!Accept("(")) return false;
    do {
      if (!Value()) return false;
    } while (Accept(","));
    return Accept(")");
  }
  void SkipTo(std::string_view word) {
    while (!AtEnd() && !NextIs(word)) ++at_;
  }

  std::size_t Position() const { return at_; }
  Tokens From(std::size_t start) const {
    return {tokens_.begin() + static_cast<std::ptrdiff_t>(start),
            tokens_.begin() + static_cast<std::ptrdiff_t>(at_)};
  }

 private:
  const Tokens& tokens_;
  std::size_t at_ = 0;
};

bool IsKeyName(const JetToken& token) {
  constexpr std::string_view kEnding = "ID";
  return IsName(token) && token.text.size() >= kEnding.size() &&
         EqualsIgnoringCase(std::string_view(token.text).substr(token.text.size() - 2), kEnding);
}

// The positions, from 1, of the selected columns that are keys.
std::string KeyPositions(const Tokens& query) {
  std::string result;
  int position = 1;
  for (std::size_t i = 1; i < query.size() && !query[i - 1].Is("FROM"); ++i) {
    const bool ends = query[i].Is(",") || query[i].Is("FROM");
    if (!ends) continue;
    if (IsKeyName(query[i - 1])) result += (result.empty() ? "" : ", ") + std::to_string(position);
    ++position;
  }
  return result;
}

// The column of "SELECT ... FROM table WHERE column IN (...)", and nothing behind it.
std::optional<JetToken> ListedColumn(const Tokens& query) {
  Reader reader(query);
  if (!reader.Accept("SELECT") || reader.NextIs("DISTINCT")) return std::nullopt;
  reader.SkipTo("FROM");
  if (!reader.Accept("FROM") || !reader.Name() || !reader.Accept("WHERE")) return std::nullopt;
  const std::optional<JetToken> column = reader.Name();
  const bool whole = column && reader.Accept("IN") && reader.ValueList() && reader.AtEnd();
  return whole ? column : std::nullopt;
}

// "SELECT columns FROM left LEFT JOIN right ON left.x=right.y WHERE terms joined by OR"
struct Join {
  Tokens columns;
  JetToken left;
  JetToken right;
  Tokens on;
  Tokens leftTerms;   // those about `left`, joined by OR
  Tokens rightTerms;  // those about `right`
};

bool SameName(const JetToken& a, const JetToken& b) {
  return EqualsIgnoringCase(a.text, b.text);
}

JetToken Raw(std::string_view text) {
  return {JetTokenKind::kSymbol, std::string(text)};
}

// One term, "table.column = value" or "table.column IN (values)".
bool TakeTerm(Reader& reader, Join& join) {
  const std::size_t start = reader.Position();
  const std::optional<JetToken> table = reader.Name();
  if (!table || !reader.Accept(".") || !reader.Name()) return false;
  const bool whole =
      reader.Accept("=") ? reader.Value() : reader.Accept("IN") && reader.ValueList();
  const bool known = SameName(*table, join.left) || SameName(*table, join.right);
  if (!whole || !known) return false;
  Tokens& terms = SameName(*table, join.left) ? join.leftTerms : join.rightTerms;
  if (!terms.empty()) terms.push_back(Raw("OR"));
  const Tokens term = reader.From(start);
  terms.insert(terms.end(), term.begin(), term.end());
  return true;
}

bool TakeTables(Reader& reader, Join& join) {
  const auto left = reader.Name();
  if (!left || !reader.Accept({"LEFT", "JOIN"})) return false;
  const auto right = reader.Name();
  if (!right || SameName(*left, *right) || !reader.Accept("ON")) return false;
  const std::size_t start = reader.Position();
  const bool on = reader.Name() && reader.Accept(".") && reader.Name() && reader.Accept("=") &&
                  reader.Name() && reader.Accept(".") && reader.Name();
  join.left = *left;
  join.right = *right;
  join.on = reader.From(start);
  return on;
}

std::optional<Join> ParseJoin(const Tokens& query) {
  Join join;
  Reader reader(query);
  if (!reader.Accept("SELECT") || reader.NextIs("DISTINCT") || reader.NextIs("TOP")) {
    return std::nullopt;
  }
  const std::size_t start = reader.Position();
  reader.SkipTo("FROM");
  join.columns = reader.From(start);
  // All columns would be those of the found row numbers, too.
  if (Has(join.columns, "*")) return std::nullopt;
  if (!reader.Accept("FROM") || !TakeTables(reader, join) || !reader.Accept("WHERE")) {
    return std::nullopt;
  }
  do {
    if (!TakeTerm(reader, join)) return std::nullopt;
  } while (reader.Accept("OR"));
  const bool both = !join.leftTerms.empty() && !join.rightTerms.empty();
  return reader.AtEnd() && both ? std::optional(join) : std::nullopt;
}

// Puts statements together from words of SQLite, names and pieces of the query.
class Builder {
 public:
  Builder& Add(std::string_view sqliteText) {
    tokens_.push_back(Raw(sqliteText));
    return *this;
  }
  Builder& Add(const JetToken& token) {
    tokens_.push_back(token);
    return *this;
  }
  Builder& Add(const Tokens& tokens) {
    tokens_.insert(tokens_.end(), tokens.begin(), tokens.end());
    return *this;
  }
  Tokens Take() { return std::move(tokens_); }

 private:
  Tokens tokens_;
};

}  // namespace

std::string ImpliedOrder(const Tokens& query, bool hasTop, std::string_view lengthFunction) {
  if (Has(query, "ORDER")) return {};
  if (hasTop) return " ORDER BY 1 DESC";
  if (Has(query, "JOIN")) {
    const std::string keys = KeyPositions(query);
    return keys.empty() ? keys : " ORDER BY " + keys;
  }
  const std::optional<JetToken> column = ListedColumn(query);
  if (!column) return {};
  return " ORDER BY " + std::string(lengthFunction) + "([" + column->text + "]) DESC";
}

std::optional<Tokens> IndexedJoin(const Tokens& query) {
  const std::optional<Join> join = ParseJoin(query);
  if (!join) return std::nullopt;
  const JetToken& left = join->left;
  const JetToken& right = join->right;
  const auto addRowNumbers = [&](Builder& out) {
    out.Add("SELECT").Add(left).Add(".rowid AS l,").Add(right).Add(".rowid AS r FROM");
  };
  Builder out;
  out.Add("SELECT").Add(join->columns).Add("FROM (");
  addRowNumbers(out);
  out.Add(right).Add("CROSS JOIN").Add(left).Add("ON").Add(join->on);
  out.Add("WHERE").Add(join->rightTerms);
  out.Add("UNION");
  addRowNumbers(out);
  out.Add(left).Add("LEFT JOIN").Add(right).Add("ON").Add(join->on);
  out.Add("WHERE").Add(join->leftTerms);
  out.Add(") AS found CROSS JOIN").Add(left).Add("ON").Add(left).Add(".rowid = found.l");
  out.Add("LEFT JOIN").Add(right).Add("ON").Add(right).Add(".rowid = found.r");
  return out.Take();
}

std::optional<Tokens> SplitJoin(const Tokens& query) {
  const std::optional<Join> join = ParseJoin(query);
  if (!join) return std::nullopt;
  Builder out;
  const auto addSelect = [&](std::string_view kind) {
    out.Add("SELECT").Add(join->columns).Add("FROM").Add(join->left).Add(kind).Add(join->right);
    out.Add("ON").Add(join->on).Add("WHERE (");
  };
  addSelect("LEFT JOIN");
  out.Add(join->leftTerms).Add(") UNION ALL");
  addSelect("INNER JOIN");
  // A comparison with a null is neither true nor false.
  out.Add(join->rightTerms).Add(") AND CASE WHEN").Add(join->leftTerms);
  out.Add("THEN 1 ELSE 0 END = 0");
  return out.Take();
}

}  // namespace orvane
