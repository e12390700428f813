#pragma once

#include <string>

#include "core/HostServices.h"

namespace ringbook::com {

/// The server's message boxes. By default each message is shown with
/// MessageBoxW (OK button only, titled with the component's name). When the
/// environment variable RINGBOOK_MESSAGE_LOG names a file, each message is
/// appended to that file instead, as one UTF-8 line ending in CR LF, and
/// nothing is shown: unattended runs and tests never block. The variable is
/// read at every message, so a host may set it at any time.
class ComMessageSink : public IMessageSink {
 public:
  void Show(const std::string& text) override;

  /// The log file RINGBOOK_MESSAGE_LOG names; empty when it is not set.
  static std::wstring LogFile();
};

}  // namespace ringbook::com
