// Writes the program's icon, as Windows wants it in all sizes that desktops ask for, or in the
// largest as one picture:
//   orvane-icon-builder <file.ico|file.png>

#include <QBuffer>
#include <QDataStream>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QSaveFile>
#include <array>
#include <cstdio>

#include "ui/style/glyph.h"
#include "ui/style/palette.h"

namespace {

// From the title bar at 100 % to the largest tile.
constexpr std::array<quint8, 9> kSides = {16, 20, 24, 32, 40, 48, 64, 128, 0};
// What the file calls 0.
constexpr int kLargestSide = 256;
constexpr quint16 kIconType = 1;
constexpr quint16 kColourPlanes = 1;
constexpr quint16 kBitsPerPixel = 32;
constexpr quint32 kHeaderBytes = 6;
constexpr quint32 kEntryBytes = 16;
// On each side, as a share of the tile.
constexpr qreal kLogoMargin = 0.1;

// The logo is a tile with the handset cut out; here the handset is white on every ground.
QByteArray Picture(int side) {
  QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  const qreal inset = side / 6.0;
  const orvane::Palette palette = orvane::LightPalette();
  painter.fillRect(QRectF(inset, inset, side - 2 * inset, side - 2 * inset), palette.onFrame);
  // The logo has a margin, which an icon does without.
  const qreal margin = side * kLogoMargin;
  orvane::PaintGlyph(painter, orvane::Glyph::kLogo,
                     QRectF(-margin, -margin, side + 2 * margin, side + 2 * margin), palette.frame);
  painter.end();
  QBuffer png;
  png.open(QIODevice::WriteOnly);
  image.save(&png, "PNG");
  return png.data();
}

bool WritePicture(QSaveFile& file) {
  const QByteArray picture = Picture(kLargestSide);
  return file.write(picture) == picture.size();
}

bool WriteIcon(QSaveFile& file) {
  QDataStream out(&file);
  out.setByteOrder(QDataStream::LittleEndian);
  out << quint16{0} << kIconType << static_cast<quint16>(kSides.size());
  quint32 offset = kHeaderBytes + kEntryBytes * static_cast<quint32>(kSides.size());
  QByteArray pictures;
  for (const quint8 side : kSides) {
    const QByteArray picture = Picture(side == 0 ? kLargestSide : side);
    const auto bytes = static_cast<quint32>(picture.size());
    // No colour table, and a reserved byte.
    out << side << side << quint8{0} << quint8{0} << kColourPlanes << kBitsPerPixel << bytes
        << offset;
    offset += bytes;
    pictures += picture;
  }
  return file.write(pictures) == pictures.size();
}

bool Write(const QString& name) {
  QSaveFile file(name);
  if (!file.open(QIODevice::WriteOnly)) return false;
  const bool written = name.endsWith(QLatin1String(".png")) ? WritePicture(file) : WriteIcon(file);
  return written && file.commit();
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 2 && Write(QFile::decodeName(argv[1]))) return 0;
  std::fputs("orvane-icon-builder: the icon was not written\n", stderr);
  return 1;
}
