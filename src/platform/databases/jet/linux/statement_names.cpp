#include "platform/databases/jet/linux/statement_names.h"

#include "platform/databases/dialect/jet_tokens.h"

namespace orvane {
namespace {

bool IsName(const JetToken& token) {
  return token.kind == JetTokenKind::kWord || token.kind == JetTokenKind::kName;
}

bool IsComparison(const std::vector<JetToken>& tokens, std::size_t index) {
  return index < tokens.size() && (tokens[index].Is("=") || tokens[index].Is("IN"));
}

// "T.C" behind a comparison is one name, of which C counts.
bool IsComparedWith(const std::vector<JetToken>& tokens, std::size_t index) {
  const bool qualified = index >= 3 && tokens[index - 1].Is(".");
  return index >= 1 && tokens[qualified ? index - 3 : index - 1].Is("=");
}

}  // namespace

StatementNames NamesIn(std::string_view sql) {
  const std::vector<JetToken> tokens = SplitJetTokens(sql);
  StatementNames names;
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    if (tokens[i].Is("*")) names.all.emplace_back("*");
    if (!IsName(tokens[i])) continue;
    names.all.push_back(tokens[i].text);
    if (IsComparison(tokens, i + 1) || IsComparedWith(tokens, i)) {
      names.compared.push_back(tokens[i].text);
    }
  }
  return names;
}

}  // namespace orvane
