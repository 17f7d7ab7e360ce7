#pragma once

#include <QString>

namespace orvane {

// A text in the form in which texts are compared for a search: without regard to case, with "ß" as
// "ss" and an umlaut as one character.
QString FoldForSearch(const QString& text);

// A folded text with its umlauts spelled out, "müller" as "mueller".
QString SpellOutUmlauts(QString folded);

}  // namespace orvane
