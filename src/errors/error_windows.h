#pragma once

#include <span>
#include <string>

#include "look/dialog_frame.h"
#include "platform/services.h"

class QPlainTextEdit;
class QVBoxLayout;

/// Tells that something went wrong and how to send the report to the support. It doesn't show the
/// report itself. What the user gave amiss, if that was it, stands first. Any number may be open.
class Form11 : public DialogFrame {
  Q_OBJECT

 public:
  /// The services outlive the window.
  explicit Form11(const Services& services, QWidget* parent = nullptr, std::string slip = {});

 private:
  /// A line of one of the ways to send the report.
  struct Line {
    std::string text;
    const char* link = nullptr;  ///< the name of the control, if the line is a link
    void (Form11::*follow)() = nullptr;
  };

  void LayOut();
  void AddHeading(QVBoxLayout& column);
  void AddWays(QVBoxLayout& column);
  void AddCard(QVBoxLayout& column, std::span<const Line> way);

  void BeginMail();
  void ShowReportFile();

  const Services& services_;
  const std::string slip_;
  const std::string report_folder_;  ///< without a closing separator
};

/// Shows the text of a report, for a developer.
class frmShowError : public QWidget {
  Q_OBJECT

 public:
  explicit frmShowError(QWidget* parent = nullptr);

  /// Puts `report` into the window and shows it; modal where another modal window would keep the
  /// user from it.
  void ShowError(const std::string& report);

 private:
  QPlainTextEdit* txtError;
};
