#pragma once

#include <windows.h>

#include <oaidl.h>

#include <cstdint>
#include <exception>
#include <new>

#include "core/Error.h"

namespace ringbook::com {

/// The one place where the library's errors meet COM's.
///
/// Every member of every class runs its body through `Translate`: a
/// `ringbook::Error` becomes a failure HRESULT with an IErrorInfo carrying the
/// error's number, source and description, so that a late-bound caller reads
/// exactly those in Err.Number, Err.Source and Err.Description.
///
/// Numbers to HRESULTs: a number that already is a failure HRESULT (the
/// component's 0x8004xxxx range, or any negative number) is used as it is;
/// a runtime number n from 1 to 65535 becomes 0x800A0000 | n
/// (FACILITY_CONTROL), which script engines show as n again.

/// The HRESULT that carries error number `number`.
HRESULT HresultFromNumber(int32_t number) noexcept;
/// The error number a caller sees for a failure HRESULT: the code of a
/// FACILITY_CONTROL HRESULT, the HRESULT itself otherwise.
int32_t NumberFromHresult(HRESULT hr) noexcept;

/// Sets the thread's COM error object to `error` (for the interface `iid`)
/// and returns its HRESULT.
HRESULT ReportError(const Error& error, REFIID iid) noexcept;

/// Makes sure the calling thread's host objects are this server's (see
/// HostServicesSetup.h). Called before each member's body.
void EnsureThreadHostServices();

/// Runs `body` and returns S_OK, or the translated failure. An exception
/// that is not an `Error` becomes "Out of memory" (7) or error 51 "Internal
/// error" with its text as the description.
template <class F>
HRESULT Translate(REFIID iid, F&& body) noexcept {
  try {
    EnsureThreadHostServices();
    body();
    return S_OK;
  } catch (const Error& e) {
    return ReportError(e, iid);
  } catch (const std::bad_alloc&) {
    return ReportError(Error(7, std::string(kComponentName), "Out of memory"), iid);
  } catch (const std::exception& e) {
    return ReportError(
        Error(51, std::string(kComponentName), std::string("Internal error: ") + e.what()), iid);
  } catch (...) {
    return ReportError(Error(51, std::string(kComponentName), "Internal error"), iid);
  }
}

/// The error a failed call into a host object produced: the EXCEPINFO of a
/// DISP_E_EXCEPTION, or else the thread's COM error object, or else the
/// runtime's text for the number. Dispatch's own failures map to the
/// runtime's numbers: unknown member 438, type mismatch 13, wrong number of
/// arguments 450, overflow 6, argument not optional 449.
Error ErrorFromCall(HRESULT hr, EXCEPINFO* info);

}  // namespace ringbook::com
