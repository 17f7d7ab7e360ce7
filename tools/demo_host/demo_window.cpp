#include "demo_host/demo_window.h"

#include <QCloseEvent>
#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTime>
#include <QVBoxLayout>

#include "demo_host/dial_message.h"
#include "ui/style/glyph_icon.h"
#include "ui/style/palette.h"
#include "ui/style/style_sheet.h"

namespace orvane {
namespace {

constexpr const char* kCaption = "TALMIX_TRAY18 Demo";
constexpr int kMaxLogLines = 2000;
constexpr int kRowHeight = 32;
constexpr int kDialColumn = 4;
constexpr int kDialColumnWidth = 116;

// What the window has besides the controls of the dialer's own style.
constexpr const char* kStyle = R"(
QWidget#demo { background: %ground; }
QLabel#head { background: %frame; color: %onFrame; font-size: 16px; font-weight: bold;
  padding: 10px 12px; }
QTableWidget { background: %field; border: 1px solid %border; border-radius: 6px;
  selection-background-color: %selection; selection-color: %text; }
QTableWidget::item { padding: 0 8px; border-bottom: 1px solid %strip; }
QHeaderView { background: transparent; }
QHeaderView::section { background: %strip; color: %heading; border: none; padding: 6px 8px;
  font-weight: bold; }
QPlainTextEdit { background: %log; color: %onLog; border: none; border-radius: 6px; padding: 4px;
  font-family: monospace; }
)";

QString WindowStyle() {
  const Palette palette = CurrentPalette();
  const std::pair<const char*, QColor> colours[] = {
      {"%ground", palette.ground},       {"%frame", palette.frame},   {"%onFrame", palette.onFrame},
      {"%field", palette.field},         {"%border", palette.border}, {"%text", palette.text},
      {"%selection", palette.selection}, {"%strip", palette.strip},   {"%heading", palette.heading},
      {"%onLog", palette.onLog},         {"%log", palette.log}};
  QString style = QString::fromLatin1(kStyle);
  for (const auto& [name, colour] : colours) style.replace(QLatin1String(name), colour.name());
  return style;
}

QTableWidgetItem* Cell(const std::string& text) {
  auto* item = new QTableWidgetItem(QString::fromStdString(text));
  item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
  return item;
}

QPlainTextEdit* NewLog(const char* objectName, const QString& accessibleName, QWidget* parent) {
  auto* log = new QPlainTextEdit(parent);
  log->setObjectName(QLatin1String(objectName));
  log->setAccessibleName(accessibleName);
  log->setReadOnly(true);
  log->setMaximumBlockCount(kMaxLogLines);
  return log;
}

QString Stamped(const QString& text) {
  return QTime::currentTime().toString(QStringLiteral("HH:mm:ss.zzz")) + QStringLiteral("  ") +
         text;
}

}  // namespace

DemoWindow::DemoWindow(const SampleContacts& contacts, const QString& lineTitle, QWidget* parent)
    : QWidget(parent),
      notifications_(NewLog("notifications", tr("Meldungen des Wählprogramms"), this)),
      heard_(NewLog("heard", lineTitle, this)),
      dialerState_(new QLabel(this)) {
  setWindowTitle(QString::fromLatin1(kCaption));
  setObjectName(QStringLiteral("demo"));
  setAttribute(Qt::WA_StyledBackground);
  setStyleSheet(WindowStyle());
  // To the left, because the dial window opens at the right edge of the screen.
  setGeometry(40, 60, 860, 800);
  notifications_->setPlaceholderText(tr("Noch keine Meldung."));

  auto* head = new QLabel(tr("Kontakte der Demo-Installation"), this);
  head->setObjectName(QStringLiteral("head"));

  auto* logs = new QHBoxLayout;
  logs->addWidget(LogPanel(lineTitle, heard_));
  logs->addWidget(LogPanel(tr("Meldungen des Wählprogramms"), notifications_));

  auto* body = new QVBoxLayout;
  body->setContentsMargins(12, 12, 12, 12);
  body->setSpacing(10);
  body->addWidget(ContactTable(contacts), 3);
  body->addLayout(logs, 1);
  body->addWidget(dialerState_);

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(head);
  layout->addLayout(body);
}

QWidget* DemoWindow::ContactTable(const SampleContacts& contacts) {
  const QStringList headers = {tr("Firma"), tr("Ort"), tr("Person"), tr("Rufnummer"), QString()};
  auto* table = new QTableWidget(static_cast<int>(contacts.companies.size()),
                                 static_cast<int>(headers.size()), this);
  table->setAccessibleName(tr("Kontakte"));
  table->setHorizontalHeaderLabels(headers);
  table->verticalHeader()->hide();
  table->verticalHeader()->setDefaultSectionSize(kRowHeight);
  table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  table->horizontalHeader()->setHighlightSections(false);
  table->setShowGrid(false);
  table->setSelectionBehavior(QAbstractItemView::SelectRows);
  table->setSelectionMode(QAbstractItemView::SingleSelection);

  for (std::size_t i = 0; i < contacts.companies.size(); ++i) {
    const auto& company = contacts.companies[i];
    const int row = static_cast<int>(i);
    table->setItem(row, 0, Cell(company.name));
    table->setItem(row, 1, Cell(company.city));
    table->setItem(row, 2, Cell(PersonToDial(company)));
    table->setItem(row, 3, Cell(NumberToDial(company)));
    table->setCellWidget(row, kDialColumn, DialButton(i, QString::fromStdString(company.name)));
  }
  table->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
  table->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
  table->horizontalHeader()->setSectionResizeMode(kDialColumn, QHeaderView::Fixed);
  table->horizontalHeader()->resizeSection(kDialColumn, kDialColumnWidth);
  // Enter in a row, for those without a pointer.
  connect(table, &QTableWidget::cellActivated, this,
          [this](int row, int) { Q_EMIT DialRequested(static_cast<std::size_t>(row)); });
  table->setFocus();
  return table;
}

QWidget* DemoWindow::DialButton(std::size_t company, const QString& name) {
  auto* place = new QWidget(this);
  auto* button = new QPushButton(tr("Wählen"), place);
  button->setIcon(GlyphIcon(Glyph::kHandset, &Palette::dial));
  button->setAccessibleName(tr("Wählen: %1").arg(name));
  button->setToolTip(tr("%1 zum Wählen vorbereiten").arg(name));
  connect(button, &QPushButton::clicked, this, [this, company] { Q_EMIT DialRequested(company); });
  auto* layout = new QHBoxLayout(place);
  layout->setContentsMargins(6, 3, 6, 3);
  layout->addWidget(button);
  return place;
}

QWidget* DemoWindow::LogPanel(const QString& title, QPlainTextEdit* log) {
  auto* panel = new QWidget(this);
  auto* heading = new QLabel(title, panel);
  SetRole(*heading, role::kHeading);
  auto* layout = new QVBoxLayout(panel);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(heading);
  layout->addWidget(log);
  return panel;
}

void DemoWindow::AddNotification(const QString& text) {
  notifications_->appendPlainText(Stamped(text));
}

void DemoWindow::AddHeard(const QString& text) {
  heard_->appendPlainText(Stamped(text));
}

void DemoWindow::SetDialerState(const QString& text) {
  dialerState_->setText(text);
}

void DemoWindow::closeEvent(QCloseEvent* event) {
  Q_EMIT Closing();
  QWidget::closeEvent(event);
}

}  // namespace orvane
