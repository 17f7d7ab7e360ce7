#pragma once

#include <QString>

namespace orvane {

// A text in the form in which texts are compared for a search: without regard to case, "ß" as "ss"
// and umlauts spelled out, so that "Müller" and "Mueller" find each other.
QString FoldForSearch(const QString& text);

}  // namespace orvane
