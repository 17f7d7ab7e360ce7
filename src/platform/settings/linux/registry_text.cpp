#include "platform/settings/linux/registry_text.h"

#include <algorithm>
#include <iterator>

#include "platform/settings/linux/registry_value.h"

namespace orvane {
namespace {

const QString kPlainSection = QStringLiteral("General");

bool SameName(const QString& a, const QString& b) {
  return a.compare(b, Qt::CaseInsensitive) == 0;
}

// Names have everything but letters, digits, "_", "-" and "." as %XX or %UXXXX, and "\" between the
// parts of a key.
QString DecodeName(const QByteArray& raw) {
  const QString text = QString::fromUtf8(raw);
  QString name;
  for (qsizetype i = 0; i < text.size(); ++i) {
    if (text[i] == u'\\') {
      name += u'/';
      continue;
    }
    const bool wide = text[i] == u'%' && i + 1 < text.size() && text[i + 1] == u'U';
    const qsizetype digits = wide ? 4 : 2;
    const qsizetype first = i + (wide ? 2 : 1);
    bool valid = false;
    const ushort code = text.mid(first, digits).toUShort(&valid, 16);
    if (text[i] == u'%' && valid && first + digits <= text.size()) {
      name += QChar(code);
      i = first + digits - 1;
    } else {
      name += text[i];
    }
  }
  return name;
}

QByteArray EncodeName(const QString& name) {
  QByteArray raw;
  for (const QChar c : name) {
    const ushort code = c.unicode();
    const bool letter = (code >= 'a' && code <= 'z') || (code >= 'A' && code <= 'Z');
    if (letter || (code >= '0' && code <= '9') || code == '_' || code == '-' || code == '.') {
      raw += static_cast<char>(code);
    } else if (c == u'/') {
      raw += '\\';
    } else if (code <= 0xFF) {
      raw += '%' + QByteArray::number(code, 16).toUpper().rightJustified(2, '0');
    } else {
      raw += "%U" + QByteArray::number(code, 16).toUpper().rightJustified(4, '0');
    }
  }
  return raw;
}

}  // namespace

std::optional<RegistryText> RegistryText::Parse(const QByteArray& text) {
  RegistryText parsed;
  QString section;
  const QByteArray body = text.startsWith("\xEF\xBB\xBF") ? text.mid(3) : text;
  if (body.isEmpty()) return parsed;
  for (const QByteArray& raw : body.split('\n')) {
    Line line{raw, section, {}, {}};
    const QByteArray content = raw.trimmed();
    if (content.startsWith('[')) {
      if (!content.endsWith(']')) return std::nullopt;
      section = DecodeName(content.mid(1, content.size() - 2).trimmed());
      line.section = section;
    } else if (!content.isEmpty() && !content.startsWith(';') && !content.startsWith('#')) {
      const qsizetype equals = content.indexOf('=');
      if (equals < 0) return std::nullopt;
      const QString name = DecodeName(content.left(equals).trimmed());
      const bool plain = section.isEmpty() || section == kPlainSection;
      line.key = plain ? name : section + u'/' + name;
      line.value = content.mid(equals + 1);
    }
    parsed.lines_.append(line);
  }
  // What stands behind the last line break is not a line.
  if (!parsed.lines_.isEmpty() && parsed.lines_.last().raw.isEmpty()) parsed.lines_.removeLast();
  return parsed;
}

const RegistryText::Line* RegistryText::Find(const QString& key) const {
  const auto found = std::find_if(lines_.begin(), lines_.end(), [&](const Line& line) {
    return !line.key.isEmpty() && SameName(line.key, key);
  });
  return found == lines_.end() ? nullptr : &*found;
}

std::optional<QString> RegistryText::Value(const QString& key) const {
  const Line* line = Find(key);
  return line == nullptr ? std::nullopt : DecodeRegistryValue(line->value);
}

void RegistryText::SetValue(const QString& key, const QString& value) {
  const QString section = key.section(u'/', 0, 0);
  const QByteArray encoded = EncodeRegistryValue(value);
  if (const Line* existing = Find(key)) {
    Line& line = lines_[std::distance(lines_.cbegin(), QList<Line>::const_iterator(existing))];
    line.raw = line.raw.left(line.raw.indexOf('=') + 1) + encoded;
    line.value = encoded;
    return;
  }
  const QByteArray raw = EncodeName(key.section(u'/', 1)) + '=' + encoded;
  // Behind the last line of the section that is not blank.
  const auto last = std::find_if(lines_.rbegin(), lines_.rend(), [&](const Line& line) {
    return SameName(line.section, section) && !line.raw.trimmed().isEmpty();
  });
  if (last != lines_.rend()) {
    lines_.insert(last.base(), Line{raw, section, key, encoded});
    return;
  }
  if (!lines_.isEmpty()) lines_.append(Line{{}, lines_.last().section, {}, {}});
  lines_.append(Line{'[' + EncodeName(section) + ']', section, {}, {}});
  lines_.append(Line{raw, section, key, encoded});
}

void RegistryText::RemoveValue(const QString& key) {
  lines_.removeIf([&](const Line& line) { return !line.key.isEmpty() && SameName(line.key, key); });
}

QByteArray RegistryText::Text() const {
  QByteArray text;
  for (const Line& line : lines_) text += line.raw + '\n';
  return text;
}

}  // namespace orvane
