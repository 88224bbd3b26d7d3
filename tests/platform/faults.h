#pragma once

#include <cerrno>
#include <functional>

/// `call` with its n-th use (from 1) answered by -1 and `error`; 0 answers every use so.
template <class Answer, class... Args>
void Fail(std::function<Answer(Args...)>& call, int error, int nth = 0) {
  call = [real = call, error, nth, used = 0](Args... args) mutable -> Answer {
    if (nth != 0 && ++used != nth) return real(args...);
    errno = error;
    return -1;
  };
}
