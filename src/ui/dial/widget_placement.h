#pragma once

#include <QWidget>
#include <vector>

#include "ui/logic/window_settings.h"

namespace orvane {

// A top-level widget in twips of the desktop.
class WidgetPlacement : public PlacedWindow {
 public:
  explicit WidgetPlacement(QWidget& widget) : widget_(widget) {}

  WindowState State() const override;
  void SetState(WindowState state) override;
  TwipPoint Position() const override;
  void MoveTo(TwipPoint position) override;
  TwipSize Size() const override;
  std::vector<TwipScreen> Screens() const override;

 private:
  QWidget& widget_;
};

}  // namespace orvane
