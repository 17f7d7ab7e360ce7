#pragma once

#include <QWidget>

#include "ui/logic/window_settings.h"

namespace orvane {

// A top-level widget in twips of the primary screen.
class WidgetPlacement : public PlacedWindow {
 public:
  explicit WidgetPlacement(QWidget& widget) : widget_(widget) {}

  WindowState State() const override;
  void SetState(WindowState state) override;
  TwipPoint Position() const override;
  void MoveTo(TwipPoint position) override;
  TwipSize Size() const override;
  TwipSize ScreenSize() const override;

 private:
  QWidget& widget_;
};

}  // namespace orvane
