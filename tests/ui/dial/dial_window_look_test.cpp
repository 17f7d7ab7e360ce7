#include <QComboBox>
#include <QFontMetrics>
#include <cmath>

#include "dial_window_fixture.h"
#include "ui/style/palette.h"

namespace orvane {
namespace {

double Luminance(const QColor& colour) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
         0.0722 * linear(colour.blueF());
}

TEST(PaletteTest, EveryTextCanBeReadOnItsGround) {
  for (const Palette& palette : {LightPalette(), DarkPalette()}) {
    for (const TextPair& pair : TextPairs(palette)) {
      const double a = Luminance(pair.text) + 0.05, b = Luminance(pair.ground) + 0.05;
      EXPECT_GE(std::max(a, b) / std::min(a, b), 4.5)
          << pair.use << " on " << palette.ground.name().toStdString();
    }
  }
}

class DialWindowLook : public DialWindowFixture {
 protected:
  ~DialWindowLook() override {
    QApplication::setPalette(QPalette());
    QApplication::setFont(font);
  }
  void ExpectNothingIsCutOff() {
    for (const QWidget* control : window->findChildren<QWidget*>()) {
      if (control->objectName().isEmpty() || !control->isVisible()) continue;
      SCOPED_TRACE(control->objectName().toStdString());
      EXPECT_TRUE(control->parentWidget()->rect().contains(control->geometry()));
      const auto* button = qobject_cast<const QAbstractButton*>(control);
      const bool isText = control->objectName().startsWith(QLatin1String("lbl")) ||
                          qobject_cast<const QLineEdit*>(control) != nullptr;
      QSize text(0, isText ? control->fontMetrics().height() : 0);
      if (button) text = button->fontMetrics().size(Qt::TextShowMnemonic, button->text());
      EXPECT_LE(text.width(), control->width());
      if (isText || (button && !button->text().isEmpty())) {
        EXPECT_LE(text.height(), control->height());
      }
    }
  }
  const QFont font = QApplication::font();
};

TEST_F(DialWindowLook, FollowsTheDesktopsPalette) {
  for (const auto& [ground, lightness] :
       {std::pair{QColor(Qt::white), 247}, {QColor(0x20, 0x20, 0x20), 30}}) {
    QPalette colours(ground);
    colours.setColor(QPalette::WindowText, lightness > 99 ? Qt::black : Qt::white);
    QApplication::setPalette(colours);
    MakeWindow();
    ShowWindow();
    const QColor shown = window->grab().toImage().pixelColor(4, window->height() / 3);
    EXPECT_LT(std::abs(shown.lightness() - lightness), 20);
  }
}

TEST_F(DialWindowLook, NothingIsCutOffWithLargeFontsAndLongTexts) {
  const std::string endless(250, 'W');
  CreateJournalFile(UserFile("TelList.fdb"),
                    "INSERT INTO o (ID,Zeit,Firma,Nr) VALUES (1,45385.5,'" + endless + "','1')");
  for (const int points : {9, 12, 16}) {
    QFont larger = font;
    larger.setPointSize(points);
    QApplication::setFont(larger);
    MakeWindow();
    WriteFile(UserFile("Kurzwahl.dat"), endless + "|111|\xBF\xBF");
    ShowWindow();
    Click("cmdHistory");
    QApplication::processEvents();
    const QSize designed = window->size();
    window->SetContactLabel(endless + "\r\n" + endless + "\r\n\r\n" + endless);
    window->SetDialMethodStatus("<Bereit>", endless);
    window->AddStatus(endless);
    Q_EMIT Find<QComboBox>("cboNr")->activated(0);
    EXPECT_EQ(window->size(), designed);
    SCOPED_TRACE(points);
    ExpectNothingIsCutOff();
    Click("hovSizer");
    EXPECT_LE(window->height(), 66);
    ExpectNothingIsCutOff();
    Click("hovSizer");
    EXPECT_EQ(window->size(), designed);
  }
}

}  // namespace
}  // namespace orvane
