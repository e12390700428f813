#pragma once

#include <gtest/gtest.h>

#include <functional>

#include "core/Error.h"

namespace ringbook::test {

/// The runtime error that `f` raises; a test failure (and error 0) when it
/// raises none.
inline Error Raised(const std::function<void()>& f) {
  try {
    f();
  } catch (const Error& e) {
    return e;
  }
  ADD_FAILURE() << "no error was raised";
  return Error(0, "", "");
}

}  // namespace ringbook::test
