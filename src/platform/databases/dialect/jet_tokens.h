#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orvane {

enum class JetTokenKind {
  kWord,    // keyword, name or function
  kName,    // a name that stood in brackets
  kNumber,  // without a sign
  kText,    // `text` is the content: without quotes, doubled ones made single
  kDate,    // `date` is the date number
  kSymbol,  // one of ( ) , . ; = < > <= >= <> + - *
};

struct JetToken {
  JetTokenKind kind = JetTokenKind::kSymbol;
  std::string text;
  double date = 0;

  // Whether this is the word, in capitals, or the symbol. Never true for names in brackets and
  // texts.
  bool Is(std::string_view wordOrSymbol) const;
};

// Splits a statement in the Jet dialect. Throws DatabaseError kDbErrorSyntax for what no Jet
// statement holds: an open quote, bracket or date, an impossible date, a comment, a character
// outside the dialect.
std::vector<JetToken> SplitJetTokens(std::string_view sql);

[[noreturn]] void ThrowJetSyntaxError(const std::string& description);

}  // namespace orvane
