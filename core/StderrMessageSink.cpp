#include "core/StderrMessageSink.h"

#include <cstdio>

namespace ringbook {

void StderrMessageSink::Show(const std::string& text) {
  std::fprintf(stderr, "%s\n", text.c_str());
  std::fflush(stderr);
}

}  // namespace ringbook
