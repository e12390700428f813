#pragma once

#include <windows.h>

#include <oaidl.h>

#include <memory>

#include "core/HostServices.h"

namespace ringbook::com {

/// The library's host objects made from a host's own COM objects, whose
/// members are called by name (see CHostServices in the IDL for the members
/// each must have). Errors of the host's object pass to the caller as it
/// raised them. Each function keeps a reference to `object`.
std::shared_ptr<ISettings> HostSettings(IDispatch* object);
std::shared_ptr<IDice> HostDice(IDispatch* object);
std::shared_ptr<IDisplayText> HostDisplayText(IDispatch* object);
std::shared_ptr<ILookup> HostLookup(IDispatch* object);
std::shared_ptr<IUtility> HostUtility(IDispatch* object);
std::shared_ptr<IMessageSink> HostMessageSink(IDispatch* object);

}  // namespace ringbook::com
