#include "ui/style/style_sheet.h"

#include <QRegularExpression>
#include <QStyle>
#include <QVariant>
#include <QWidget>
#include <algorithm>
#include <utility>

namespace orvane {
namespace {

constexpr char kTemplate[] = R"(
QWidget { color: @text; }
QDialog, QMessageBox { background: @ground; }
QDialogButtonBox { dialogbuttonbox-buttons-have-icons: 0; }
QToolTip { color: @text; background: @field; border: 1px solid @border; padding: 3px; }
QMenu { background: @field; border: 1px solid @border; }
QMenu::item { padding: 4px 22px; }
QMenu::item:selected { background: @selection; }
QMenu::item:disabled { color: @disabledText; }

QFrame[role="title"] { background: @frame; border-top-left-radius: 9px;
  border-top-right-radius: 9px; }
QFrame[role="title"] QLabel { color: @onFrame; font-weight: bold; }
QLabel[role="smallTitleCaption"] { font-size: @tinyPx; }
QPushButton[role="titleButton"] { background: transparent; border: 1px solid transparent;
  border-radius: 3px; padding: 0; }
QPushButton[role="titleButton"]:hover { background: @frameHover; }
QPushButton[role="titleButton"]:pressed { background: @log; }
#hovClose:hover { background: @hangUp; }
#hovClose:pressed { background: @hangUpPressed; }
QPushButton[role="titleButton"]:focus { border: 1px solid @onFrame; }

QFrame[role="body"] { background: @ground; border-bottom-left-radius: 9px;
  border-bottom-right-radius: 9px; }
QFrame[role="strip"] { background: @strip; }
QFrame[role="card"] { background: @field; border: 1px solid @border; border-radius: 6px; }
QFrame[role="card"]:focus { border: 2px solid @focus; }
QLabel[role="heading"] { color: @heading; font-weight: bold; }
QLabel[role="muted"] { color: @mutedText; }
QLabel[role="ready"] { color: @good; font-size: @smallPx; }
QLabel[role="problem"] { color: @problem; font-size: @smallPx; }

QLineEdit { color: @text; background: @field; border: 1px solid @border; border-radius: 6px;
  padding: 2px 6px; selection-color: @text; selection-background-color: @selection; }
QLineEdit:hover { border-color: @mutedText; }
QLineEdit:focus { border: 2px solid @focus; padding: 1px 5px; }
QLineEdit:disabled { color: @disabledText; background: @disabledField; }
QLineEdit[role="number"] { font-size: @numberPx; }
QLineEdit[role="mediumNumber"] { font-size: @mediumNumberPx; }
QLineEdit[role="longNumber"] { font-size: @longNumberPx; }
QLineEdit[role="compactNumber"] { font-size: @compactNumberPx; padding: 0 6px; }
QLineEdit[role="compactNumber"]:focus { padding: 0 5px; }

QPushButton { color: @text; background: @field; border: 1px solid @border; border-radius: 6px;
  padding: 4px 14px; }
QPushButton:hover { background: @fieldHover; }
QPushButton:pressed, QPushButton:checked { background: @selection; border-color: @focus; }
QPushButton:focus { border: 2px solid @focus; }
QPushButton:disabled { color: @disabledText; background: @disabledField; }
QPushButton[role="tool"] { padding: 0; }
QPushButton[role="fieldButton"] { padding: 0; background: transparent;
  border: 1px solid transparent; border-radius: 4px; }
QPushButton[role="fieldButton"]:hover { background: @fieldHover; }
QPushButton[role="fieldButton"]:pressed { background: @selection; }
QPushButton[role="fieldButton"]:focus { border: 2px solid @focus; }
QPushButton[role="key"] { padding: 0; font-size: @keyPx; }
QPushButton[role="smallKey"] { padding: 0; border-radius: 4px; font-size: @compactKeyPx; }
QPushButton[role="dial"], QPushButton[role="hangUp"] { color: @onCommand; padding: 0;
  font-size: @commandPx; font-weight: bold; }
#cmdDial_1 { font-size: @compactCommandPx; }
QPushButton[role="dial"] { background: @dial; border: 1px solid @dial; }
QPushButton[role="dial"]:hover { background: @dialHover; border-color: @dialHover; }
QPushButton[role="dial"]:pressed { background: @dialPressed; border-color: @dialPressed; }
QPushButton[role="hangUp"] { background: @hangUp; border: 1px solid @hangUp; }
QPushButton[role="hangUp"]:hover { background: @hangUpHover; border-color: @hangUpHover; }
QPushButton[role="hangUp"]:pressed { background: @hangUpPressed; border-color: @hangUpPressed; }
QPushButton[role="dial"]:focus, QPushButton[role="hangUp"]:focus {
  border: 2px solid @commandFocus; }
QPushButton[role="dial"]:disabled, QPushButton[role="hangUp"]:disabled { color: @disabledText;
  background: @disabledField; border: 1px solid @border; }

QComboBox { combobox-popup: 0; color: @text; background: @field; border: 1px solid @border; border-radius: 6px;
  padding: 2px 8px; }
QComboBox:hover { border-color: @mutedText; }
QComboBox:focus, QComboBox:on { border: 2px solid @focus; padding: 1px 7px; }
QComboBox:disabled { color: @disabledText; background: @disabledField; }
QComboBox::drop-down { border: none; width: 22px; }
QComboBox::down-arrow { image: none; }
QComboBox QAbstractItemView { color: @text; background: @field; border: 1px solid @border;
  selection-color: @text; selection-background-color: @selection; outline: none; }
QComboBox QAbstractItemView::item { min-height: 24px; }
QComboBox QAbstractItemView::item:selected { color: @text; background: @selection; }
QComboBox QAbstractItemView::item:disabled { color: @disabledText; }

QCheckBox { spacing: 6px; padding: 2px; border: 1px solid transparent; border-radius: 4px; }
QCheckBox:focus { border: 1px solid @focus; }
QCheckBox:disabled { color: @disabledText; }
QCheckBox::indicator { width: 13px; height: 13px; border: 1px solid @mutedText; border-radius: 3px;
  background: @field; }
QCheckBox::indicator:hover { border-color: @focus; }
QCheckBox::indicator:checked { background: @frame; border-color: @frame; }
QCheckBox::indicator:checked:hover { background: @frameHover; }
QCheckBox::indicator:pressed { background: @selection; }
QCheckBox::indicator:checked:pressed { background: @log; }
QCheckBox::indicator:disabled { background: @disabledField; border-color: @border; }

QRadioButton { spacing: 6px; padding: 2px; border: 1px solid transparent; border-radius: 4px;
  outline: none; }
QRadioButton:focus { border: 1px solid @focus; }
QRadioButton:disabled { color: @disabledText; }
QRadioButton::indicator { width: 13px; height: 13px; border: 1px solid @mutedText;
  border-radius: 7px; background: @field; }
QRadioButton::indicator:hover { border-color: @focus; }
QRadioButton::indicator:checked { border-color: @focus; }
QRadioButton::indicator:pressed { background: @selection; }
QRadioButton::indicator:disabled { background: @disabledField; border-color: @border; }

QFrame[role="log"] { background: @log; border-bottom-left-radius: 9px;
  border-bottom-right-radius: 9px; }
QFrame[role="logBeside"] { background: @log; border-bottom-left-radius: 9px; }
QFrame[role="logEdge"] { background: @externalMarker; }
QLabel[role="version"] { color: @onLogMuted; font-size: @smallPx; }
QListView[role="log"] { color: @onLog; background: transparent; border: 1px solid transparent;
  border-radius: 4px; padding: 3px 7px; font-size: @smallPx; }
QListView[role="log"]:focus { border: 1px solid @onLogMuted; }
QListView[role="log"]::item { color: @onLog; }

QFrame[role="history"] { background: @field; border: none; border-left: 1px solid @border;
  border-bottom-right-radius: 9px; }
QTabBar::tab { color: @mutedText; background: transparent; border: 2px solid transparent;
  border-top-left-radius: 6px; border-top-right-radius: 6px; border-bottom: none;
  padding: 6px 12px 7px 12px; }
QTabBar::tab:hover { color: @text; background: @fieldHover; }
QTabBar::tab:pressed { background: @selection; }
QTabBar::tab:selected { color: @heading; background: @field; font-weight: bold; }
QTabBar::tab:selected:focus { border-color: @focus; }
QTreeView[role="calls"] { background: transparent; border: 1px solid transparent;
  border-bottom-right-radius: 9px; }
QTreeView[role="calls"]:focus { border: 1px solid @focus; }
QHeaderView { background: transparent; border: none; }
QHeaderView::section { color: @mutedText; background: @ground; border: none;
  border-right: 1px solid @strip; border-bottom: 1px solid @border; padding: 3px 7px 3px 8px;
  font-size: @smallPx; font-weight: bold; }
QHeaderView::section:hover { background: @fieldHover; }

QTabWidget[role="pages"] { background: @strip; }
QTabWidget[role="pages"]::pane { background: @ground; border: none; }
QTabWidget[role="pages"]::tab-bar { left: 12px; }
QTabWidget[role="pages"] QTabBar::tab { margin-top: 6px; }
QTabWidget[role="pages"] QTabBar::tab:selected { background: @ground; }
QFrame[role="foot"] { background: @ground; border-bottom-left-radius: 9px;
  border-bottom-right-radius: 9px; }
QPushButton[role="primary"] { color: @onFrame; background: @frame; border-color: @frame;
  font-weight: bold; }
QPushButton[role="primary"]:hover { background: @frameHover; border-color: @frameHover; }
QPushButton[role="primary"]:pressed { background: @log; border-color: @log; }
QPushButton[role="primary"]:disabled { color: @disabledText; background: @disabledField;
  border-color: @border; }
QPushButton[role="primary"]:focus { border: 2px solid @onLogMuted; }
QGroupBox { color: @heading; font-weight: bold; border: 1px solid @border; border-radius: 6px;
  margin-top: 8px; padding-top: 6px; }
QGroupBox::title { subcontrol-origin: margin; left: 9px; padding: 0 3px; }
QGroupBox[role="cover"] { background: @strip; margin-top: 0; padding-top: 22px; }
QGroupBox[role="cover"]::title { left: 6px; top: 8px; }
QListView[role="choices"] { color: @text; background: @field; border: 1px solid @border;
  border-radius: 6px; padding: 2px; outline: none; }
QListView[role="choices"]:hover, QPlainTextEdit:hover { border-color: @mutedText; }
QListView[role="choices"]:disabled { color: @disabledText; background: @disabledField; }
QListView[role="choices"]:focus { border: 2px solid @focus; padding: 1px; }
QListView[role="choices"]::item { min-height: 22px; }
QListView[role="choices"]::item:selected { color: @text; background: @selection; }
QPlainTextEdit { color: @text; background: @field; border: 1px solid @border; border-radius: 6px;
  padding: 1px; selection-color: @text; selection-background-color: @selection; }
QPlainTextEdit:focus { border: 2px solid @focus; padding: 0; }
QPlainTextEdit[role="log"] { color: @onLog; background: @log; border-color: @log;
  font-size: @smallPx; selection-color: @log; selection-background-color: @onLogMuted; }
QPlainTextEdit[role="log"]:focus { border: 2px solid @onLogMuted; }

QScrollBar:vertical { background: transparent; width: 9px; margin: 0; }
QScrollBar::handle:vertical { background: @mutedText; border-radius: 4px; min-height: 20px; }
QScrollBar:horizontal { background: transparent; height: 9px; margin: 0; }
QScrollBar::handle:horizontal { background: @mutedText; border-radius: 4px; min-width: 20px; }
QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }
)";

struct NamedColour {
  const char* name;
  QColor Palette::*colour;
};

constexpr NamedColour kColours[] = {
    {"frame", &Palette::frame},
    {"onFrame", &Palette::onFrame},
    {"frameHover", &Palette::frameHover},
    {"ground", &Palette::ground},
    {"strip", &Palette::strip},
    {"field", &Palette::field},
    {"fieldHover", &Palette::fieldHover},
    {"border", &Palette::border},
    {"text", &Palette::text},
    {"mutedText", &Palette::mutedText},
    {"disabledText", &Palette::disabledText},
    {"disabledField", &Palette::disabledField},
    {"heading", &Palette::heading},
    {"selection", &Palette::selection},
    {"focus", &Palette::focus},
    {"good", &Palette::good},
    {"problem", &Palette::problem},
    {"externalMarker", &Palette::externalMarker},
    {"dial", &Palette::dial},
    {"dialHover", &Palette::dialHover},
    {"dialPressed", &Palette::dialPressed},
    {"hangUp", &Palette::hangUp},
    {"hangUpHover", &Palette::hangUpHover},
    {"hangUpPressed", &Palette::hangUpPressed},
    {"onCommand", &Palette::onCommand},
    {"commandFocus", &Palette::commandFocus},
    {"log", &Palette::log},
    {"onLog", &Palette::onLog},
    {"onLogMuted", &Palette::onLogMuted},
};

QString Pixels(int count) {
  return QStringLiteral("%1px").arg(count);
}

QString ValueOf(const QString& name, const Palette& palette, int fontPixels) {
  if (name == QLatin1String("smallPx")) return Pixels(std::max(fontPixels - 1, 9));
  if (name == QLatin1String("tinyPx")) return QStringLiteral("10px");
  if (name == QLatin1String("keyPx")) return Pixels(fontPixels + 4);
  if (name == QLatin1String("commandPx")) return Pixels(fontPixels + 2);
  if (name == QLatin1String("numberPx")) return Pixels(fontPixels + 5);
  if (name == QLatin1String("mediumNumberPx")) return Pixels(fontPixels + 3);
  // The field is hardly wider with a large font.
  if (name == QLatin1String("longNumberPx")) return Pixels(std::min(fontPixels + 1, 18));
  // The compact view is as low with a large font.
  if (name == QLatin1String("compactNumberPx")) return Pixels(std::min(fontPixels + 1, 14));
  if (name == QLatin1String("compactCommandPx")) return Pixels(std::min(fontPixels + 2, 15));
  if (name == QLatin1String("compactKeyPx")) return Pixels(std::min(fontPixels - 1, 12));
  for (const auto& [known, colour] : kColours) {
    if (name == QLatin1String(known)) return (palette.*colour).name();
  }
  qFatal("style sheet: unknown name %s", qPrintable(name));
  return {};
}

}  // namespace

QString StyleSheet(const Palette& palette, int fontPixels) {
  const QRegularExpression name(QStringLiteral("@([A-Za-z]+)"));
  const QString text = QString::fromLatin1(kTemplate);
  QString sheet;
  qsizetype done = 0;
  for (auto match = name.globalMatch(text); match.hasNext();) {
    const auto found = match.next();
    sheet += text.mid(done, found.capturedStart() - done);
    sheet += ValueOf(found.captured(1), palette, fontPixels);
    done = found.capturedEnd();
  }
  return sheet + text.mid(done);
}

void SetRole(QWidget& widget, const char* role) {
  widget.setProperty("role", QString::fromLatin1(role));
  widget.style()->unpolish(&widget);
  widget.style()->polish(&widget);
}

}  // namespace orvane
