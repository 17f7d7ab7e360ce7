#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <optional>

namespace orvane {

// The text of a registry file: an INI file in the toolkit's format (QSettings::IniFormat), so that
// other programs can read and write it too. Keys are given whole, parts separated by "/", the first
// part is the section; letter case does not count. Lines that are not touched stay as they are.
//
// The toolkit's own class is not used because it keeps values that could not be written, and takes
// a file of equal size for unchanged when it was written twice within one tick of the file system.
class RegistryText {
 public:
  // Nothing when the text is damaged: a section without its end, a line that is neither a value nor
  // a comment.
  static std::optional<RegistryText> Parse(const QByteArray& text);

  // The first value of that key as text; a list's parts joined with ", ". Nothing when there is no
  // such key or the value is of a type that has no text (bytes, variants).
  std::optional<QString> Value(const QString& key) const;
  void SetValue(const QString& key, const QString& value);
  void RemoveValue(const QString& key);

  QByteArray Text() const;

 private:
  struct Line {
    QByteArray raw;
    QString section;  // the section the line stands in, "" before the first
    QString key;      // whole key of a value line, otherwise empty
    QByteArray value;
  };

  const Line* Find(const QString& key) const;

  QList<Line> lines_;
};

}  // namespace orvane
