#pragma once

#include <QLocale>
#include <QMimeDatabase>
#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/services.h"

/// The queue of the running Qt application.
class QtEventPump : public EventPump {
 public:
  void LetEventsRun() override;
  /// Whether a pass lets events run at this moment.
  bool Running() const { return running_; }

 private:
  bool running_ = false;
};

/// The folders that the desktop names (xdg-user-dirs on Linux), and that of the login.
class QtFolders : public Folders {
 public:
  std::string Documents() override;
  std::string Home() override;
};

/// The facts of a locale as Qt knows it: by default the user's.
class QtLocaleFacts : public LocaleFacts {
 public:
  explicit QtLocaleFacts(const QLocale& locale = QLocale::system()) : locale_(locale) {}

  std::string MonthName(int month) const override;
  std::string ShortMonthName(int month) const override;
  std::string DecimalPoint() const override;
  std::string ThousandsSeparator() const override;

 private:
  QLocale locale_;
};

/// Type names from the desktop's MIME database, in the user's language. An extension is looked up
/// once; letter case matters only where the database says so (".C" and ".c").
class QtTypeNames : public TypeNames {
 public:
  std::string TypeName(std::string_view extension) override;

 private:
  QMimeDatabase database_;
  std::unordered_map<std::string, std::string> names_;  ///< by extension as given
};

/// Message boxes over the window that is active, or over none.
class QtPrompts : public Prompts {
 public:
  void Tell(std::string_view message, PromptIcon icon) override;
  bool Ask(std::string_view question, PromptIcon icon) override;
  PromptAnswer AskOrCancel(std::string_view title, std::string_view question,
                           PromptIcon icon) override;
};
