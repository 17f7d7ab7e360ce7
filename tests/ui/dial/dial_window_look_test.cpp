#include <QComboBox>
#include <QFontMetrics>
#include <QPalette>
#include <QScreen>
#include <cmath>

#include "dial_window_fixture.h"
#include "platform/common/qt_window_chrome.h"
#include "ui/style/palette.h"
#include "ui/style/style_sheet.h"

namespace orvane {
namespace {

double Luminance(const QColor& colour) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
         0.0722 * linear(colour.blueF());
}

double Contrast(const QColor& one, const QColor& other) {
  const double a = Luminance(one) + 0.05;
  const double b = Luminance(other) + 0.05;
  return a > b ? a / b : b / a;
}

TEST(PaletteTest, EveryTextCanBeReadOnItsGround) {
  for (const Palette& palette : {LightPalette(), DarkPalette()}) {
    for (const TextPair& pair : TextPairs(palette)) {
      SCOPED_TRACE(pair.use);
      SCOPED_TRACE(palette.ground.name().toStdString());
      EXPECT_GE(Contrast(pair.text, pair.ground), 4.5);
    }
  }
}

QPalette DarkDesktop() {
  QPalette dark;
  dark.setColor(QPalette::Window, QColor(0x20, 0x20, 0x20));
  dark.setColor(QPalette::WindowText, Qt::white);
  return dark;
}

// Saves a picture for a person to look at, where the variable names a folder.
void SavePicture(QWidget& window, const QString& name) {
  const QString folder = qEnvironmentVariable("ORVANE_PICTURE_DIR");
  if (folder.isEmpty()) return;
  QTest::qWait(50);
  const bool realScreen = QGuiApplication::platformName() == QLatin1String("xcb");
  const QPixmap picture =
      realScreen ? window.screen()->grabWindow(0, window.x() - 8, window.y() - 8,
                                               window.width() + 16, window.height() + 16)
                 : window.grab();
  picture.save(folder + QLatin1Char('/') + name + QStringLiteral(".png"));
}

class DialWindowLook : public DialWindowFixture {
 protected:
  ~DialWindowLook() override {
    QApplication::setPalette(QPalette());
    QApplication::setFont(font);
  }
  const QFont font = QApplication::font();
};

TEST_F(DialWindowLook, IsCompleteInEveryVariant) {
  struct Variant {
    const char* name;
    bool dark;
    bool inCall;
  };
  for (const Variant& variant : {Variant{"light-idle", false, false},
                                 {"light-call", false, true},
                                 {"dark-idle", true, false},
                                 {"dark-call", true, true}}) {
    SCOPED_TRACE(variant.name);
    QApplication::setPalette(variant.dark ? DarkDesktop() : QPalette());
    window.reset();
    window = std::make_unique<frmDial>(services, state, call, queue, [](QWidget& widget) {
      return std::make_unique<QtWindowChrome>(widget);
    });
    WriteFile(UserFile("Kurzwahl.dat"), "A|111|B|222|\xBFX & <Y>|0304711 (ext.)|\xBF");
    ShowWindow();
    if (variant.inCall) {
      window->SetNumberText("030 / 12 34-56");
      window->SetContactLabel("Havelwerk Maschinenbau GmbH\r\nBerlin\r\n\r\nLindner, Katharina");
      window->SetExternTicked(true);
      window->SetDialButtonIdle(false);
      window->AddStatus(">>> Wählen: 0030123456");
      window->AddStatus("Verbunden um 09:05:07");
    }
    SavePicture(*window, QString::fromLatin1(variant.name));
    const QColor ground = window->grab().toImage().pixelColor(4, window->height() / 3);
    EXPECT_LT(std::abs(ground.lightness() - (variant.dark ? 30 : 247)), 20);
  }
}

TEST_F(DialWindowLook, NothingIsCutOffWithLargeFontsAndLongTexts) {
  const std::string endless(250, 'W');
  for (const int points : {9, 12, 16}) {
    SCOPED_TRACE(points);
    QFont larger = font;
    larger.setPointSize(points);
    QApplication::setFont(larger);
    MakeWindow();
    WriteFile(UserFile("Kurzwahl.dat"), endless + "|111|\xBF\xBF");
    ShowWindow();
    const QSize designed = window->size();
    window->SetContactLabel(endless + "\r\n" + endless + "\r\n\r\n" + endless);
    window->SetDialMethodStatus("<Bereit>", endless);
    window->AddStatus(endless);
    Q_EMIT Find<QComboBox>("cboNr")->activated(0);
    SavePicture(*window, QStringLiteral("font-%1").arg(points));
    EXPECT_EQ(window->size(), designed);
    for (const QWidget* control : window->findChildren<QWidget*>()) {
      if (control->objectName().isEmpty() || !control->isVisible()) continue;
      SCOPED_TRACE(control->objectName().toStdString());
      EXPECT_TRUE(control->parentWidget()->rect().contains(control->geometry()));
      const auto* button = qobject_cast<const QAbstractButton*>(control);
      if (button != nullptr && !button->text().isEmpty()) {
        const QSize text = button->fontMetrics().size(Qt::TextShowMnemonic, button->text());
        EXPECT_LE(text.width(), button->width());
        EXPECT_LE(text.height(), button->height());
      } else if (control->objectName().startsWith(QLatin1String("lbl")) ||
                 qobject_cast<const QLineEdit*>(control) != nullptr) {
        EXPECT_GE(control->height(), control->fontMetrics().height());
      }
    }
  }
}

}  // namespace
}  // namespace orvane
