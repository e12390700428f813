#pragma once

#include <windows.h>

namespace ringbook::com {

/// A critical section. The win32-thread mingw runtime has no std::mutex, and
/// the server's few shared tables (type infos, the object identity map) are
/// all it guards.
class ComMutex {
 public:
  ComMutex() { InitializeCriticalSection(&section_); }
  ~ComMutex() { DeleteCriticalSection(&section_); }
  ComMutex(const ComMutex&) = delete;
  ComMutex& operator=(const ComMutex&) = delete;

  class Guard {
   public:
    explicit Guard(ComMutex& mutex) : mutex_(mutex) { EnterCriticalSection(&mutex_.section_); }
    ~Guard() { LeaveCriticalSection(&mutex_.section_); }
    Guard(const Guard&) = delete;
    Guard& operator=(const Guard&) = delete;

   private:
    ComMutex& mutex_;
  };

 private:
  CRITICAL_SECTION section_;
};

}  // namespace ringbook::com
