#include <QBoxLayout>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

#include "ui/options/options_controls.h"
#include "ui/style/control_building.h"
#include "ui/style/picture.h"

namespace orvane {
namespace {

constexpr int kPageMargin = 12;
constexpr int kMarkerSide = 14;
constexpr int kFieldHeight = 28;
constexpr int kRowSpacing = 10;

struct Block {
  const char* heading;
  const char* picture;
  Glyph glyph;
  QColor Palette::*colour;
  const char* numberName;
  const char* nameName;
  const char* kind;
};

QLineEdit* NewField(QWidget& page, const char* name, std::size_t row, const QString& description) {
  auto* field = new QLineEdit(&page);
  Name(*field, name, row);
  field->setToolTip(description);
  field->setAccessibleName(description);
  AtLeastHigh(*field, kFieldHeight);
  return field;
}

QHBoxLayout* BuildHeading(QWidget& page, const Block& block) {
  auto* picture = new Picture(&page, block.glyph, block.colour, kMarkerSide);
  Name(*picture, block.picture);
  auto* heading = new QLabel(QString::fromLatin1(block.heading), &page);
  SetRole(*heading, role::kHeading);
  heading->setMinimumWidth(0);
  heading->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  auto* row = new QHBoxLayout;
  row->setSpacing(6);
  row->addWidget(picture);
  row->addWidget(heading, 1);
  return row;
}

QGridLayout* BuildBlock(QWidget& page, const Block& block, SpeedDialFields& fields) {
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(6);
  grid->setVerticalSpacing(kRowSpacing);
  grid->addLayout(BuildHeading(page, block), 0, 0, 1, 2);
  grid->addWidget(new QLabel(QStringLiteral("Rufnummer:"), &page), 1, 0);
  grid->addWidget(new QLabel(QStringLiteral("Kurzwahlbezeichnung:"), &page), 1, 1);
  for (std::size_t i = 0; i < kSpeedDialRows; ++i) {
    const int row = static_cast<int>(i) + 2;
    const QString place = QStringLiteral("%1 %2").arg(QString::fromLatin1(block.kind)).arg(i + 1);
    fields.numbers[i] =
        NewField(page, block.numberName, i, QStringLiteral("Rufnummer %1").arg(place));
    fields.names[i] =
        NewField(page, block.nameName, i, QStringLiteral("Kurzwahlbezeichnung %1").arg(place));
    grid->addWidget(fields.numbers[i], row, 0);
    grid->addWidget(fields.names[i], row, 1);
  }
  grid->setColumnStretch(0, 2);
  grid->setColumnStretch(1, 3);
  grid->setRowStretch(static_cast<int>(kSpeedDialRows) + 2, 1);
  return grid;
}

}  // namespace

QWidget* BuildSpeedDialPage(QWidget& dialog, OptionsControls& c) {
  static constexpr Block kInternal = {"INTERN ____________________________________",
                                      "imgInt",
                                      Glyph::kInternal,
                                      &Palette::internalMarker,
                                      "txtKWi",
                                      "txtKNi",
                                      "intern"};
  static constexpr Block kExternal = {"EXTERN ____________________________________",
                                      "imgExt",
                                      Glyph::kExternal,
                                      &Palette::externalMarker,
                                      "txtKWe",
                                      "txtKNe",
                                      "extern"};
  c.speedDialPage = new QWidget(&dialog);
  auto* row = new QHBoxLayout(c.speedDialPage);
  row->setContentsMargins(kPageMargin, kPageMargin, kPageMargin, 0);
  row->setSpacing(2 * kPageMargin);
  row->addLayout(BuildBlock(*c.speedDialPage, kInternal, c.internalRows), 1);
  row->addLayout(BuildBlock(*c.speedDialPage, kExternal, c.externalRows), 1);
  return c.speedDialPage;
}

}  // namespace orvane
