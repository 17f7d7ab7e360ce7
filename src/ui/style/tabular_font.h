#pragma once

#include <QFont>

namespace orvane {

// The font itself when its digits are all of one width, otherwise a similar one for which that
// holds.
QFont TabularDigitFont(const QFont& font);

}  // namespace orvane
