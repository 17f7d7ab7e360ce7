#pragma once

#include <QString>

#include "ui/style/palette.h"

class QWidget;

namespace orvane {

// The application's style sheet. Sizes follow the desktop font's size in device-independent pixels.
QString StyleSheet(const Palette& palette, int fontPixels);

// What a control is for, as the style sheet selects it by the property "role".
namespace role {
inline constexpr char kTitle[] = "title";
inline constexpr char kTitleCaption[] = "titleCaption";
inline constexpr char kSmallTitleCaption[] = "smallTitleCaption";
inline constexpr char kTitleButton[] = "titleButton";
inline constexpr char kBody[] = "body";
inline constexpr char kStrip[] = "strip";
inline constexpr char kNumber[] = "number";
inline constexpr char kMediumNumber[] = "mediumNumber";
inline constexpr char kLongNumber[] = "longNumber";
inline constexpr char kCompactNumber[] = "compactNumber";
inline constexpr char kFieldButton[] = "fieldButton";
inline constexpr char kTool[] = "tool";
inline constexpr char kCard[] = "card";
inline constexpr char kHeading[] = "heading";
inline constexpr char kMuted[] = "muted";
inline constexpr char kReady[] = "ready";
inline constexpr char kProblem[] = "problem";
inline constexpr char kKey[] = "key";
inline constexpr char kSmallKey[] = "smallKey";
inline constexpr char kDial[] = "dial";
inline constexpr char kHangUp[] = "hangUp";
inline constexpr char kLog[] = "log";
inline constexpr char kLogEdge[] = "logEdge";
inline constexpr char kVersion[] = "version";
inline constexpr char kPlain[] = "plain";
inline constexpr char kLogBeside[] = "logBeside";
inline constexpr char kHistory[] = "history";
inline constexpr char kCalls[] = "calls";
inline constexpr char kPages[] = "pages";
inline constexpr char kFoot[] = "foot";
inline constexpr char kPrimary[] = "primary";
inline constexpr char kChoices[] = "choices";
inline constexpr char kCover[] = "cover";
}  // namespace role

// Gives a control its role and redraws it so.
void SetRole(QWidget& widget, const char* role);

}  // namespace orvane
