#pragma once

// The tool's own failures. `main` prints each as one line on standard error
// ("ringbook: <message>") and exits with the code below; a library `Error`
// is printed the same way with exit code 1.
#include <stdexcept>

namespace ringbook::cli {

/// The exit code of a failed command (unknown ID, missing database, damaged
/// file, a refusal of the library).
inline constexpr int kExitFailure = 1;
/// The exit code of a command called wrongly (bad arguments or values).
inline constexpr int kExitUsage = 2;

/// A command that was called wrongly: exit code 2.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A command that cannot be carried out: exit code 1.
class CommandError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace ringbook::cli
