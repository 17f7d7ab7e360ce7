#include "platform/common/qt_prompts.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <functional>
#include <memory>

namespace orvane {
namespace {

// Shows a box through `show` and looks at it while it is up; `look` has to let it go.
void WithBox(const std::function<void()>& show, const std::function<void(QMessageBox&)>& look) {
  bool seen = false;
  QTimer::singleShot(0, qApp, [&] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    seen = true;
    look(*box);
  });
  show();
  EXPECT_TRUE(seen);
}

TEST(QtPrompts, ShowsTextsAsWhatTheyAre) {
  QtPrompts prompts;
  struct Case {
    bool markup;
    PromptIcon icon;
    const char* text;
    QMessageBox::Icon boxIcon;
    QString shown;
    Qt::TextFormat format;
  };
  const Case cases[] = {
      {false, PromptIcon::kStop, "eins\r\nzwei\rdrei\nvier", QMessageBox::Critical,
       QStringLiteral("eins\nzwei\ndrei\nvier"), Qt::PlainText},
      {false, PromptIcon::kExclamation, "<b>Schlüssel</b>", QMessageBox::Warning,
       QStringLiteral("<b>Schlüssel</b>"), Qt::PlainText},
      {true, PromptIcon::kNone, "eins<br>zwei", QMessageBox::NoIcon, QStringLiteral("eins<br>zwei"),
       Qt::RichText},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    const auto show = [&] {
      if (c.markup) {
        prompts.ShowMarkup(c.icon, c.text, "Titel");
      } else {
        prompts.ShowMessage(c.icon, c.text, "Titel");
      }
    };
    WithBox(show, [&](QMessageBox& box) {
      EXPECT_EQ(box.text(), c.shown);
      EXPECT_EQ(box.textFormat(), c.format);
      EXPECT_EQ(box.icon(), c.boxIcon);
      EXPECT_EQ(box.windowTitle(), QStringLiteral("Titel"));
      EXPECT_TRUE(box.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
      EXPECT_EQ(box.buttons().size(), 1);
      box.button(QMessageBox::Ok)->click();
    });
  }
}

TEST(QtPrompts, ABoxMayGoAwayWithItsParentWindow) {
  QtPrompts prompts;
  auto window = std::make_unique<QWidget>();
  window->show();
  window->activateWindow();
  QApplication::processEvents();
  ASSERT_EQ(QApplication::activeWindow(), window.get());
  WithBox([&] { prompts.ShowMessage(PromptIcon::kNone, "Text", "Titel"); },
          [&](QMessageBox& box) {
            EXPECT_EQ(box.parentWidget(), window.get());
            window.reset();
          });
}

TEST(QtPrompts, BusyCursorIsSetAndTakenBackOnce) {
  QtPrompts prompts;
  prompts.SetBusyCursor(false);
  prompts.SetBusyCursor(true);
  prompts.SetBusyCursor(true);
  ASSERT_NE(QApplication::overrideCursor(), nullptr);
  EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
  prompts.SetBusyCursor(false);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

}  // namespace
}  // namespace orvane
