#pragma once

/// An ordinary pointer while a window waits for the user, whatever a long pass had set.
class OrdinaryPointer {
 public:
  OrdinaryPointer();
  OrdinaryPointer(const OrdinaryPointer&) = delete;
  OrdinaryPointer& operator=(const OrdinaryPointer&) = delete;
  ~OrdinaryPointer();

 private:
  const bool set_;
};
