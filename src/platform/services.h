#pragma once

#include <functional>
#include <string>
#include <string_view>

class Clock;
class FileSystem;
class SettingsStore;
class SystemFacts;

/// The window system's queue of events.
class EventPump {
 public:
  virtual ~EventPump() = default;

  /// Handles all events that wait, and returns when none is left.
  virtual void LetEventsRun() = 0;
};

/// Where the user's folders are. Paths without a closing separator.
class Folders {
 public:
  virtual ~Folders() = default;

  /// The folder for documents, which needn't exist.
  virtual std::string Documents() = 0;

  /// The user's own folder, for which "~" stands, in the bytes of the system; a root keeps its
  /// separator.
  virtual std::string Home() = 0;
};

/// What the user's language and region decide.
class LocaleFacts {
 public:
  virtual ~LocaleFacts() = default;

  /// The name of month 1 to 12 as it stands in a date: in full, and abbreviated.
  virtual std::string MonthName(int month) const = 0;
  virtual std::string ShortMonthName(int month) const = 0;

  /// What parts the whole of a number from its fraction, and its thousands from each other.
  virtual std::string DecimalPoint() const = 0;
  virtual std::string ThousandsSeparator() const = 0;
};

/// What the desktop calls a type of file, by its extension alone; no file is opened.
class TypeNames {
 public:
  virtual ~TypeNames() = default;

  /// The type name of files with `extension` (with its dot, or empty); empty when there is none.
  virtual std::string TypeName(std::string_view extension) = 0;
};

enum class PromptIcon { kExclamation, kCritical };
enum class PromptAnswer { kYes, kNo, kCancel };

/// Message boxes. Texts are plain UTF-8; "\n" breaks lines.
class Prompts {
 public:
  virtual ~Prompts() = default;

  /// Shows `message` and returns when the user has closed it.
  virtual void Tell(std::string_view message, PromptIcon icon) = 0;

  /// Shows `question` with Yes and No, No being what Enter and Esc answer. Answers whether it was
  /// Yes.
  virtual bool Ask(std::string_view question, PromptIcon icon) = 0;

  /// Shows `question` under a title of its own with Yes, No and Cancel. Enter answers No, Esc
  /// Cancel.
  virtual PromptAnswer AskOrCancel(std::string_view title, std::string_view question,
                                   PromptIcon icon) = 0;
};

/// What became of a request to the desktop. The numbers are those that messages are kept under.
enum ShellResult : int {
  kShellNoResources = 0,
  kShellFileNotFound = 2,
  kShellPathNotFound = 3,
  kShellDenied = 5,
  kShellNoMemory = 8,
  kShellBadProgram = 11,
  kShellSharing = 26,
  kShellAssociationIncomplete = 27,
  kShellNoAssociation = 31,
  kShellDone = 33,  ///< this and all above: the desktop took it over
};

/// Takes what became of a request, once: before the call returns, or later from the event loop,
/// though never amid a pass.
using ShellAnswer = std::function<void(ShellResult)>;

/// What the desktop does with files and links. Nothing here waits for the program that it starts,
/// and no shell reads a name. Where nothing stands at the path, nothing is started.
class Shell {
 public:
  virtual ~Shell() = default;

  /// Opens a file manager on the folder of `path`, with the entry selected where it can.
  virtual void ShowInFolder(std::string_view path, const ShellAnswer& answer) = 0;

  /// Shows the file manager's sheet of the properties of the entry.
  virtual void ShowProperties(std::string_view path, const ShellAnswer& answer) = 0;

  /// Opens the file or folder with the program that is registered for its kind; where there is
  /// none, the user is asked for one, if the desktop can ask.
  virtual void OpenFile(std::string_view path, const ShellAnswer& answer) = 0;

  /// Opens a link of any scheme, written as it stands in `link`.
  virtual ShellResult OpenLink(std::string_view link) = 0;
};

/// All that the system supplies. Held by reference: whoever makes it outlives its users.
struct Services {
  FileSystem& files;
  Clock& clock;
  SystemFacts& facts;
  EventPump& events;
  LocaleFacts& locale;
  TypeNames& type_names;
  Folders& folders;
  Prompts& prompts;
  Shell& shell;
  SettingsStore& settings;
};

/// The same, but for the events.
inline Services WithEvents(const Services& s, EventPump& events) {
  return {s.files,      s.clock,   s.facts,   events,  s.locale,
          s.type_names, s.folders, s.prompts, s.shell, s.settings};
}
