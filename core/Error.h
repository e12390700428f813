#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

#include "core/Export.h"

namespace ringbook {

/// The component's file name (the server module without its extension). Error
/// sources of the runtime and of the sort helper are built from it, on every
/// platform.
inline constexpr std::string_view kComponentName = "Korvat_Ringbook";

/// Error numbers the component raises or posts.
namespace errnum {
inline constexpr int32_t kInvalidProcedureCall = 5;
inline constexpr int32_t kOverflow = 6;
inline constexpr int32_t kSubscriptOutOfRange = 9;
inline constexpr int32_t kTypeMismatch = 13;
inline constexpr int32_t kFileNotFound = 53;
inline constexpr int32_t kPermissionDenied = 70;
inline constexpr int32_t kPathNotFound = 76;
inline constexpr int32_t kObjectNotSet = 91;
inline constexpr int32_t kInvalidUseOfNull = 94;
inline constexpr int32_t kCannotCreateObject = 429;
inline constexpr int32_t kObjectDoesNotSupport = 438;
/// The component's custom range: 0x80040000 plus an offset.
inline constexpr int32_t kCustomBase = static_cast<int32_t>(0x80040000u);
inline constexpr int32_t kStreamOpen = kCustomBase + 513;   // 0x80040201
inline constexpr int32_t kStreamEof = kCustomBase + 514;    // 0x80040202
inline constexpr int32_t kStreamWrite = kCustomBase + 516;  // 0x80040204
}  // namespace errnum

/// A runtime error raised to the caller: what a late-bound host reads as
/// Err.Number, Err.Source and Err.Description.
class RINGBOOK_EXPORT Error : public std::exception {
 public:
  Error(int32_t number, std::string source, std::string description);

  int32_t Number() const noexcept { return number_; }
  const std::string& Source() const noexcept { return source_; }
  const std::string& Description() const noexcept { return description_; }
  const char* what() const noexcept override { return description_.c_str(); }

  /// The runtime's own errors, with the runtime's texts and the component's
  /// name as their source.
  static Error Runtime(int32_t number);
  static Error TypeMismatch() { return Runtime(errnum::kTypeMismatch); }
  static Error Overflow() { return Runtime(errnum::kOverflow); }
  static Error InvalidUseOfNull() { return Runtime(errnum::kInvalidUseOfNull); }
  static Error ObjectNotSet() { return Runtime(errnum::kObjectNotSet); }
  static Error InvalidCall() { return Runtime(errnum::kInvalidProcedureCall); }

 private:
  int32_t number_;
  std::string source_;
  std::string description_;
};

/// The runtime's text for one of its error numbers ("Type mismatch" for 13);
/// "Application-defined or object-defined error" for numbers it does not know.
RINGBOOK_EXPORT std::string RuntimeErrorText(int32_t number);

/// The thread's error state: the last error an operation posted instead of
/// throwing. The stream posts here and never throws.
struct ErrorInfo {
  int32_t Number = 0;
  std::string Source;
  std::string Description;
};

/// The calling thread's last posted error; Number 0 when none.
RINGBOOK_EXPORT const ErrorInfo& LastError() noexcept;
/// Resets the calling thread's error state to "no error".
RINGBOOK_EXPORT void ClearLastError() noexcept;
/// Records an error in the calling thread's error state, replacing the last.
RINGBOOK_EXPORT void PostError(int32_t number, std::string source, std::string description);

}  // namespace ringbook
