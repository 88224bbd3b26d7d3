#pragma once

#include <QDialog>
#include <span>
#include <string>

#include "platform/files.h"
#include "platform/services.h"

class LinkButton;
class QPlainTextEdit;
class QPushButton;
class QVBoxLayout;

/// What the error window works with; all of it outlives the window.
struct ErrorWindowParts {
  FileSystem& files;
  Prompts& prompts;
  Shell& shell;
  std::string report_folder;  ///< without a closing separator
};

/// Tells that something went wrong and how to send the report to the support. It doesn't show the
/// report itself. Any number may be open.
class Form11 : public QDialog {
  Q_OBJECT

 public:
  explicit Form11(const ErrorWindowParts& parts, QWidget* parent = nullptr);

 private:
  /// A line of one of the ways to send the report.
  struct Line {
    std::string text;
    const char* link = nullptr;  ///< the name of the control, if the line is a link
    void (Form11::*click)() = nullptr;
  };

  void LayOut();
  void AddHeading(QVBoxLayout& column);
  void AddWays(QVBoxLayout& column);
  void AddCard(QVBoxLayout& column, std::span<const Line> way);

  void bnOK_Click();
  void Label5_Click();
  void Label56_Click();
  void Label57_Click();
  void Label58_Click();
  void ShowReportFile();

  ErrorWindowParts parts_;
  QPushButton* bnOK;
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
