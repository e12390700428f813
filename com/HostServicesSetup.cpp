#include <memory>

#include "com/ComMessageSink.h"
#include "com/ComSettings.h"
#include "com/ErrorTranslation.h"
#include "core/HostServices.h"

namespace ringbook::com {

// The library's host objects are per thread and default to those of a
// console program. On each thread that calls into the server, the first
// call puts the server's own in their place: message boxes through
// ComMessageSink, settings through ComSettings. The dice, display texts and
// utility keep the library's defaults, which suit a Windows host as they
// are.
void EnsureThreadHostServices() {
  thread_local bool done = false;
  if (done) return;
  done = true;
  SetMessageSink(std::make_shared<ComMessageSink>());
  SetSettings(std::make_shared<ComSettings>());
}

}  // namespace ringbook::com
