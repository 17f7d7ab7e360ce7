#include "platform/settings/linux/registry_value.h"

#include <QStringList>
#include <array>
#include <utility>

namespace orvane {
namespace {

constexpr std::array<std::pair<char16_t, char16_t>, 11> kEscapes{{{u'a', u'\a'},
                                                                  {u'b', u'\b'},
                                                                  {u'f', u'\f'},
                                                                  {u'n', u'\n'},
                                                                  {u'r', u'\r'},
                                                                  {u't', u'\t'},
                                                                  {u'v', u'\v'},
                                                                  {u'"', u'"'},
                                                                  {u'?', u'?'},
                                                                  {u'\'', u'\''},
                                                                  {u'\\', u'\\'}}};

bool IsHexDigit(QChar c) {
  return (c >= u'0' && c <= u'9') || (c.toLower() >= u'a' && c.toLower() <= u'f');
}

bool IsOctalDigit(QChar c) {
  return c >= u'0' && c <= u'7';
}

unsigned DigitValue(QChar c) {
  const unsigned code = c.toLower().unicode();
  return code <= '9' ? code - '0' : code - 'a' + 10U;
}

// Splits a raw value at its unquoted commas and takes quotes and escapes off.
class ValueReader {
 public:
  explicit ValueReader(QString text) : text_(std::move(text)) {}

  QStringList Read() {
    while (at_ < text_.size()) {
      const QChar c = text_[at_++];
      if (c == u'\\') {
        ReadEscape();
      } else if (c == u'"') {
        quoted_ = !quoted_;
        kept_ = part_.size();
      } else if (c == u',' && !quoted_) {
        EndPart();
      } else if (quoted_ || !c.isSpace() || !part_.isEmpty()) {
        Append(c, quoted_ || !c.isSpace());
      }
    }
    EndPart();
    return parts_;
  }

 private:
  void Append(QChar c, bool keep) {
    part_ += c;
    if (keep) kept_ = part_.size();
  }

  void EndPart() {
    parts_ += part_.left(kept_);
    part_.clear();
    kept_ = 0;
  }

  void ReadEscape() {
    if (at_ >= text_.size()) {
      Append(u'\\', true);
      return;
    }
    const QChar c = text_[at_];
    if (c == u'x' && at_ + 1 < text_.size() && IsHexDigit(text_[at_ + 1])) {
      ++at_;
      Append(QChar(ReadNumber(IsHexDigit, 16)), true);
      return;
    }
    if (IsOctalDigit(c)) {
      Append(QChar(ReadNumber(IsOctalDigit, 8)), true);
      return;
    }
    for (const auto& [letter, meaning] : kEscapes) {
      if (c != letter) continue;
      ++at_;
      Append(meaning, true);
      return;
    }
    // Not an escape: somebody wrote a path by hand.
    Append(u'\\', true);
  }

  char16_t ReadNumber(bool (*isDigit)(QChar), unsigned base) {
    unsigned number = 0;
    for (; at_ < text_.size() && isDigit(text_[at_]); ++at_) {
      number = (number * base + DigitValue(text_[at_])) & 0xFFFFU;
    }
    return static_cast<char16_t>(number);
  }

  QString text_;
  qsizetype at_ = 0;
  bool quoted_ = false;
  QString part_;
  // Length of the part without the unquoted blanks at its end.
  qsizetype kept_ = 0;
  QStringList parts_;
};

}  // namespace

std::optional<QString> DecodeRegistryValue(const QByteArray& raw) {
  const QStringList parts = ValueReader(QString::fromUtf8(raw)).Read();
  const QString text = parts.join(QStringLiteral(", "));
  if (parts.size() > 1 || !text.startsWith(u'@')) return text;
  if (text.startsWith(QStringLiteral("@@"))) return text.mid(1);
  if (text.startsWith(QStringLiteral("@String(")) && text.endsWith(u')')) {
    return text.mid(8, text.size() - 9);
  }
  // "@ByteArray(...)", "@Variant(...)" and the like; a lone "@" is text.
  return text.endsWith(u')') ? std::nullopt : std::optional(text);
}

QByteArray EncodeRegistryValue(const QString& value) {
  QString text;
  bool afterNumber = false;
  for (const QChar c : value) {
    // A hexadecimal digit behind an escaped number would be read as part of it.
    const bool asNumber = c < u' ' || c == u'\x7F' || (afterNumber && IsHexDigit(c));
    if (asNumber) {
      text += QStringLiteral("\\x") + QString::number(c.unicode(), 16);
    } else {
      if (c == u'"' || c == u'\\') text += u'\\';
      text += c;
    }
    afterNumber = asNumber;
  }
  const QString mark = value.startsWith(u'@') ? QStringLiteral("@") : QString();
  return '"' + (mark + text).toUtf8() + '"';
}

}  // namespace orvane
