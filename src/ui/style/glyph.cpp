#include "ui/style/glyph.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <array>
#include <cmath>
#include <initializer_list>
#include <numbers>
#include <utility>

namespace orvane {
namespace {

// All shapes are designed on a square of this side.
constexpr qreal kDesignSide = 24;
// How far the edge of a stroke may be from its curve there.
constexpr qreal kCurveThreshold = 0.01;

QPainterPath Stroked(const QPainterPath& line, qreal width) {
  QPainterPathStroker stroker;
  stroker.setWidth(width);
  stroker.setCurveThreshold(kCurveThreshold);
  stroker.setCapStyle(Qt::RoundCap);
  stroker.setJoinStyle(Qt::RoundJoin);
  return stroker.createStroke(line);
}

// Uniting makes lines of the curves, just fine enough for the size at hand; this one stays smooth
// when the picture is large.
QPainterPath United(const QPainterPath& one, const QPainterPath& other) {
  constexpr qreal kFineness = 32;
  const QTransform fine = QTransform::fromScale(kFineness, kFineness);
  return fine.inverted().map(fine.map(one).united(fine.map(other)));
}

QPainterPath Lines(std::initializer_list<std::initializer_list<QPointF>> strokes, qreal width) {
  QPainterPath line;
  for (const auto& stroke : strokes) {
    line.moveTo(*stroke.begin());
    for (const QPointF& point : stroke) line.lineTo(point);
  }
  return Stroked(line, width);
}

// Lying on its back, as it rests on the telephone.
QPainterPath HandsetDown() {
  QPainterPath grip;
  grip.moveTo(4.5, 13.5);
  grip.cubicTo(8, 9.2, 16, 9.2, 19.5, 13.5);
  QPainterPathStroker stroker;
  stroker.setWidth(4.6);
  stroker.setCurveThreshold(kCurveThreshold);
  QPainterPath shape = stroker.createStroke(grip);
  for (const auto& [centre, angle] : {std::pair{QPointF(4.6, 14.2), -38.0}, {{19.4, 14.2}, 38.0}}) {
    QTransform place;
    place.translate(centre.x(), centre.y());
    place.rotate(angle);
    QPainterPath shell;
    shell.addRoundedRect(QRectF(-3, -2.4, 6, 6), 1.5, 1.5);
    shape = United(shape, place.map(shell));
  }
  return shape;
}

QPainterPath Handset() {
  QTransform lift;
  lift.translate(12, 12);
  lift.rotate(-135);
  lift.translate(-12, -12.8);
  return lift.map(HandsetDown());
}

QPainterPath Redial() {
  constexpr QRectF circle(4.5, 4.5, 15, 15);
  QPainterPath arc;
  arc.arcMoveTo(circle, 40);
  arc.arcTo(circle, 40, -300);
  QPainterPath shape = Stroked(arc, 2);
  // The arrow head stands where the arc begins.
  QPainterPath head;
  head.addPolygon(QPolygonF({{19.9, 3.2}, {19.9, 10.2}, {12.9, 10.2}}));
  head.closeSubpath();
  return United(shape, head);
}

QPainterPath Clipboard() {
  QPainterPath board;
  board.addRoundedRect(QRectF(5, 4.5, 14, 17), 2, 2);
  QPainterPath clip;
  clip.addRoundedRect(QRectF(8.5, 2.5, 7, 4.5), 1.2, 1.2);
  return United(United(Stroked(board, 1.8), clip),
                Lines({{{8.5, 11.5}, {15.5, 11.5}}, {{8.5, 15}, {15.5, 15}}}, 1.6));
}

QPainterPath History() {
  QPainterPath shape = Lines({{{9, 6}, {20, 6}}, {{9, 12}, {20, 12}}, {{9, 18}, {20, 18}}}, 2);
  for (const qreal y : {6.0, 12.0, 18.0}) shape.addEllipse(QPointF(4.5, y), 1.5, 1.5);
  return shape;
}

QPainterPath Gear() {
  constexpr int kTeeth = 8;
  QPolygonF rim;
  for (int corner = 0; corner < kTeeth * 4; ++corner) {
    // Four corners a tooth: two at its tip, two at its foot, the tip a little narrower.
    constexpr std::array<qreal, 4> kAngles = {-0.28, 0.28, 0.42, 0.58};
    const auto part = static_cast<std::size_t>(corner % 4);
    const int tooth = corner / 4;
    const qreal turn = (tooth + kAngles[part] * 0.92) / kTeeth;
    const qreal radius = part < 2 ? 10.2 : 7.6;
    const qreal angle = turn * 2 * std::numbers::pi;
    rim << QPointF(12 + radius * std::sin(angle), 12 - radius * std::cos(angle));
  }
  QPainterPath shape;
  shape.addPolygon(rim);
  shape.closeSubpath();
  QPainterPath hole;
  hole.addEllipse(QPointF(12, 12), 3.3, 3.3);
  return shape.subtracted(hole);
}

QPainterPath Logo() {
  QPainterPath tile;
  tile.addRoundedRect(QRectF(2, 2, 20, 20), 5, 5);
  QTransform fit;
  fit.translate(12, 12);
  fit.scale(0.66, 0.66);
  fit.translate(-12, -12);
  // What lies within is cut out.
  tile.addPath(fit.map(Handset()));
  return tile;
}

QPainterPath Triangle(const QPointF& a, const QPointF& b, const QPointF& c) {
  QPainterPath shape;
  shape.addPolygon(QPolygonF({a, b, c}));
  shape.closeSubpath();
  return shape;
}

// What lies within is cut out.
QPainterPath Warning() {
  QPainterPath shape = Stroked(Triangle({12, 4.5}, {20.5, 19.5}, {3.5, 19.5}), 3);
  shape = United(shape, Triangle({12, 4.5}, {20.5, 19.5}, {3.5, 19.5}));
  QPainterPath mark = Lines({{{12, 9.5}, {12, 14}}}, 2.2);
  mark.addEllipse(QPointF(12, 17.6), 1.3, 1.3);
  shape.addPath(mark);
  return shape;
}

QPainterPath Stop() {
  QPainterPath shape;
  shape.addEllipse(QPointF(12, 12), 10.5, 10.5);
  shape.addPath(United(Lines({{{8, 8}, {16, 16}}}, 2.6), Lines({{{16, 8}, {8, 16}}}, 2.6)));
  return shape;
}

QPainterPath Shape(Glyph glyph) {
  switch (glyph) {
    case Glyph::kHandset:
      return Handset();
    case Glyph::kHandsetDown:
      return HandsetDown();
    case Glyph::kClear:
    case Glyph::kClose:
      return Lines({{{6, 6}, {18, 18}}, {{18, 6}, {6, 18}}}, glyph == Glyph::kClose ? 2.4 : 2);
    case Glyph::kRedial:
      return Redial();
    case Glyph::kClipboard:
      return Clipboard();
    case Glyph::kHistory:
      return History();
    case Glyph::kGear:
      return Gear();
    case Glyph::kLogo:
      return Logo();
    case Glyph::kInternal: {
      QPainterPath dot;
      dot.addEllipse(QPointF(12, 12), 5, 5);
      return dot;
    }
    case Glyph::kExternal:
      return Lines({{{6, 18}, {18, 6}}, {{9, 6}, {18, 6}, {18, 15}}}, 2.6);
    case Glyph::kArrowDown:
      return Triangle({5, 8}, {19, 8}, {12, 17});
    case Glyph::kArrowUp:
      return Triangle({5, 16}, {19, 16}, {12, 7});
    case Glyph::kArrowRight:
      return Triangle({8, 5}, {17, 12}, {8, 19});
    case Glyph::kCheckMark:
      return Lines({{{5, 12.5}, {10, 17.5}, {19, 7}}}, 3);
    case Glyph::kWarning:
      return Warning();
    case Glyph::kStop:
      return Stop();
  }
  return {};
}

bool HasCutOut(Glyph glyph) {
  return glyph == Glyph::kLogo || glyph == Glyph::kGear || glyph == Glyph::kWarning ||
         glyph == Glyph::kStop;
}

}  // namespace

void PaintGlyph(QPainter& painter, Glyph glyph, const QRectF& bounds, const QColor& colour) {
  const qreal side = std::min(bounds.width(), bounds.height());
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(bounds.center());
  painter.scale(side / kDesignSide, side / kDesignSide);
  painter.translate(-kDesignSide / 2, -kDesignSide / 2);
  QPainterPath shape = Shape(glyph);
  if (!HasCutOut(glyph)) shape.setFillRule(Qt::WindingFill);
  painter.fillPath(shape, colour);
  painter.restore();
}

}  // namespace orvane
