#include "core/Error.h"

#include <utility>

namespace ringbook {

Error::Error(int32_t number, std::string source, std::string description)
    : number_(number), source_(std::move(source)), description_(std::move(description)) {}

Error Error::Runtime(int32_t number) {
  return Error(number, std::string(kComponentName), RuntimeErrorText(number));
}

std::string RuntimeErrorText(int32_t number) {
  switch (number) {
    case errnum::kInvalidProcedureCall:
      return "Invalid procedure call or argument";
    case errnum::kOverflow:
      return "Overflow";
    case errnum::kSubscriptOutOfRange:
      return "Subscript out of range";
    case errnum::kTypeMismatch:
      return "Type mismatch";
    case errnum::kFileNotFound:
      return "File not found";
    case errnum::kPermissionDenied:
      return "Permission denied";
    case errnum::kPathNotFound:
      return "Path not found";
    case errnum::kObjectNotSet:
      return "Object variable or With block variable not set";
    case errnum::kInvalidUseOfNull:
      return "Invalid use of Null";
    case errnum::kCannotCreateObject:
      return "ActiveX component can't create object";
    case errnum::kObjectDoesNotSupport:
      return "Object doesn't support this property or method";
    default:
      return "Application-defined or object-defined error";
  }
}

namespace {
ErrorInfo& ThreadErrorState() {
  thread_local ErrorInfo state;
  return state;
}
}  // namespace

const ErrorInfo& LastError() noexcept {
  return ThreadErrorState();
}

void ClearLastError() noexcept {
  ErrorInfo& state = ThreadErrorState();
  state.Number = 0;
  state.Source.clear();
  state.Description.clear();
}

void PostError(int32_t number, std::string source, std::string description) {
  ErrorInfo& state = ThreadErrorState();
  state.Number = number;
  state.Source = std::move(source);
  state.Description = std::move(description);
}

}  // namespace ringbook
