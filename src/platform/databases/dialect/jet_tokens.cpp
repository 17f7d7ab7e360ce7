#include "platform/databases/dialect/jet_tokens.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/database.h"
#include "platform/databases/connection_properties.h"
#include "platform/databases/dialect/jet_date.h"
#include "platform/errors.h"
#include "platform/text/text_tools.h"

namespace orvane {
namespace {

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

// Letters are those of every language, so every byte of a UTF-8 sequence counts as one.
bool IsWordStart(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' ||
         static_cast<unsigned char>(c) >= 0x80;
}

bool IsWordPart(char c) {
  return IsWordStart(c) || IsDigit(c);
}

bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

class Splitter {
 public:
  explicit Splitter(std::string_view sql) : sql_(sql) {}

  std::vector<JetToken> Split() {
    while (true) {
      while (IsBlank(Peek())) ++at_;
      if (at_ >= sql_.size()) return std::move(tokens_);
      tokens_.push_back(Next());
    }
  }

 private:
  // A zero byte stands for the end; inside a statement it is refused like any unknown character.
  char Peek(std::size_t ahead = 0) const {
    return at_ + ahead < sql_.size() ? sql_[at_ + ahead] : '\0';
  }

  JetToken Next() {
    const char c = Peek();
    if (c == '\'' || c == '"') return Text(c);
    if (c == '#') return Date();
    if (c == '[') return Name();
    if (IsWordStart(c)) return Word();
    if (IsDigit(c) || (c == '.' && IsDigit(Peek(1)) && !AfterName())) return Number();
    return Symbol();
  }

  bool AfterName() const {
    return !tokens_.empty() && (tokens_.back().kind == JetTokenKind::kWord ||
                                tokens_.back().kind == JetTokenKind::kName);
  }

  JetToken Text(char quote) {
    JetToken token{JetTokenKind::kText, {}};
    for (++at_; at_ < sql_.size() && sql_[at_] != '\0'; ++at_) {
      if (sql_[at_] == quote && Peek(1) == quote) {
        ++at_;
      } else if (sql_[at_] == quote) {
        ++at_;
        return token;
      }
      token.text += sql_[at_];
    }
    ThrowJetSyntaxError("Syntaxfehler in Zeichenfolge in Abfrageausdruck.");
  }

  JetToken Date() {
    const std::size_t end = sql_.find('#', at_ + 1);
    const std::string_view inner =
        end == std::string_view::npos ? std::string_view() : sql_.substr(at_ + 1, end - at_ - 1);
    const std::optional<double> date = ParseJetDate(inner);
    if (!date) ThrowJetSyntaxError("Syntaxfehler in Datum in Abfrageausdruck.");
    at_ = end + 1;
    return {JetTokenKind::kDate, std::string(inner), *date};
  }

  JetToken Name() {
    const std::size_t end = sql_.find(']', at_);
    const std::string_view inner =
        end == std::string_view::npos ? std::string_view() : sql_.substr(at_ + 1, end - at_ - 1);
    if (inner.empty() || inner.find('\0') != std::string_view::npos) {
      ThrowJetSyntaxError("Syntaxfehler: Ungültige Klammerung eines Namens.");
    }
    at_ = end + 1;
    return {JetTokenKind::kName, std::string(inner)};
  }

  JetToken Word() {
    const std::size_t start = at_;
    while (IsWordPart(Peek())) ++at_;
    return {JetTokenKind::kWord, std::string(sql_.substr(start, at_ - start))};
  }

  JetToken Number() {
    const std::size_t start = at_;
    SkipDigits();
    if (Peek() == '.') {
      ++at_;
      SkipDigits();
    }
    if (Peek() == 'e' || Peek() == 'E') {
      const bool sign = Peek(1) == '+' || Peek(1) == '-';
      at_ += sign ? 2 : 1;
      if (!IsDigit(Peek())) ThrowJetSyntaxError("Syntaxfehler in Zahl in Abfrageausdruck.");
      SkipDigits();
    }
    if (IsWordPart(Peek())) ThrowJetSyntaxError("Syntaxfehler in Zahl in Abfrageausdruck.");
    return {JetTokenKind::kNumber, std::string(sql_.substr(start, at_ - start))};
  }

  void SkipDigits() {
    while (IsDigit(Peek())) ++at_;
  }

  JetToken Symbol() {
    static constexpr std::array<std::string_view, 14> kSymbols{
        "<=", ">=", "<>", "(", ")", ",", ".", ";", "=", "<", ">", "+", "-", "*"};
    const std::string_view rest = sql_.substr(at_);
    const auto* const found =
        rest.starts_with("--")
            ? kSymbols.end()
            : std::find_if(kSymbols.begin(), kSymbols.end(),
                           [rest](std::string_view symbol) { return rest.starts_with(symbol); });
    if (found == kSymbols.end()) {
      ThrowJetSyntaxError("Syntaxfehler (fehlender Operator) in Abfrageausdruck.");
    }
    at_ += found->size();
    return {JetTokenKind::kSymbol, std::string(*found)};
  }

  std::string_view sql_;
  std::size_t at_ = 0;
  std::vector<JetToken> tokens_;
};

}  // namespace

bool JetToken::Is(std::string_view wordOrSymbol) const {
  return (kind == JetTokenKind::kWord && EqualsIgnoringCase(text, wordOrSymbol)) ||
         (kind == JetTokenKind::kSymbol && text == wordOrSymbol);
}

std::vector<JetToken> SplitJetTokens(std::string_view sql) {
  return Splitter(sql).Split();
}

void ThrowJetSyntaxError(const std::string& description) {
  throw DatabaseError(kDbErrorSyntax, description);
}

}  // namespace orvane
