#pragma once

#include <string>

namespace orvane {

// What loading the settings changes in the dial window.
class SettingsPanel {
 public:
  virtual ~SettingsPanel() = default;

  // Whether the user may mark a number as external (`chkExtern`).
  virtual void SetExternVisible(bool visible) = 0;

  // The speed-dial list `cboNr`: read-only, without entries and without stored numbers.
  virtual void ResetSpeedDial() = 0;
  // Appends an entry, given as the markup of SpeedDialItemMarkup or as plain text.
  virtual void AddSpeedDialEntry(const std::string& text) = 0;
  // One number for each entry, in entry order, each followed by "|"; kept on the list.
  virtual void SetSpeedDialNumbers(const std::string& numbers) = 0;
  virtual void SetSpeedDialSelectable(bool selectable) = 0;
  // For the list and the picture beside it.
  virtual void SetSpeedDialToolTip(const std::string& text) = 0;

  // The status labels: elements 2 and 3 of `lblBase`.
  virtual void SetDialMethodStatus(const std::string& headline, const std::string& detail) = 0;
};

}  // namespace orvane
