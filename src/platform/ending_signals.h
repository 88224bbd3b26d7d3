#pragma once

/// SIGTERM, SIGINT and SIGHUP as something that an event loop can wait for: from its making to its
/// end, none of them ends the process. One object at a time.
class EndingSignals {
 public:
  /// A signal that was ignored stays so: nohup(1) wants it for SIGHUP, a shell without job control
  /// for the SIGINT of what it runs in the background (POSIX, Shell Command Language, 2.11).
  EndingSignals();
  EndingSignals(const EndingSignals&) = delete;
  EndingSignals& operator=(const EndingSignals&) = delete;
  ~EndingSignals();

  /// Readable from the first signal on, until `Taken`; -1 when there was no descriptor left, and
  /// then the signals end the process as ever.
  int Descriptor() const { return ends_[0]; }
  /// Whether a signal came since the last call; clears it.
  bool Taken();

 private:
  int ends_[2] = {-1, -1};
};
