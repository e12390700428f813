#pragma once

#include <windows.h>

#include <unknwn.h>

#include <memory>

#include "core/Object.h"

namespace ringbook::com {

/// This server's private interface, answered by each of its objects: the
/// library object behind it. Callers hand objects back to the component as
/// plain interface pointers (a record to `Clone`, a collection to the sort
/// helper); whatever interface the pointer claims to be, asking it for this
/// one tells whether it is one of ours and of which class, without trusting
/// its vtable. In-process only: it is never marshalled.
extern const IID IID_INativeObject;

struct INativeObject : public IUnknown {
  virtual std::shared_ptr<Object> STDMETHODCALLTYPE LibraryObject() = 0;
};

}  // namespace ringbook::com
