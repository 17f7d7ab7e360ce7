#include "platform/desktop/qt_prompts.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <functional>

#include "contract/event_wait.h"

namespace orvane {
namespace {

// Shows a box through `show` and looks at it while it is up; `look` has to let it go.
void WithBox(const std::function<void()>& show, const std::function<void(QMessageBox&)>& look) {
  bool seen = false;
  // Events run already before the box is up.
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, [&] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr) return;
    timer.stop();
    seen = true;
    look(*box);
  });
  timer.start(0);
  show();
  EXPECT_TRUE(seen);
}

TEST(QtPrompts, ShowsTextsAsWhatTheyAre) {
  QtPrompts prompts;
  const auto expect = [](const QString& text, Qt::TextFormat format, QMessageBox::Icon icon) {
    return [=](QMessageBox& box) {
      EXPECT_EQ(box.text(), text);
      EXPECT_EQ(box.textFormat(), format);
      EXPECT_EQ(box.icon(), icon);
      EXPECT_EQ(box.windowTitle(), QStringLiteral("Titel"));
      EXPECT_TRUE(box.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
      EXPECT_EQ(box.buttons().size(), 1);
      EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::ArrowCursor);
      box.button(QMessageBox::Ok)->click();
    };
  };
  prompts.SetBusyCursor(true);
  WithBox([&] { prompts.ShowMessage(PromptIcon::kStop, "1\r\n<b>ü</b>\r3\n4", "Titel"); },
          expect(QStringLiteral("1\n<b>ü</b>\n3\n4"), Qt::PlainText, QMessageBox::Critical));
  WithBox([&] { prompts.ShowMarkup(PromptIcon::kExclamation, "1<br>2", "Titel"); },
          expect(QStringLiteral("1<br>2"), Qt::RichText, QMessageBox::Warning));
  EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
  prompts.SetBusyCursor(false);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST(QtPrompts, ABoxMayGoAwayWithItsParentWindow) {
  QtPrompts prompts;
  auto window = std::make_unique<QWidget>();
  window->show();
  window->activateWindow();
  ASSERT_TRUE(RunUntil([&] { return QApplication::activeWindow() == window.get(); }));
  WithBox([&] { prompts.ShowMessage(PromptIcon::kNone, "Text", "Titel"); },
          [&](QMessageBox& box) {
            EXPECT_EQ(box.parentWidget(), window.get());
            if (box.parentWidget() == nullptr) box.close();
            window.reset();
          });
}

TEST(QtPrompts, TheEndOfTheProgramClosesBoxesAndKeepsOthersBack) {
  QtPrompts prompts;
  WithBox([&] { prompts.ShowMessage(PromptIcon::kNone, "Text", "Titel"); },
          [&](QMessageBox& /*box*/) { prompts.Dismiss(); });
  prompts.ShowMarkup(PromptIcon::kNone, "Text", "Titel");
}

}  // namespace
}  // namespace orvane
