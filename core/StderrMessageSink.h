#pragma once

#include "core/HostServices.h"

namespace ringbook {

/// The default message sink of a console program: one line on standard error.
class RINGBOOK_EXPORT StderrMessageSink : public IMessageSink {
 public:
  void Show(const std::string& text) override;
};

}  // namespace ringbook
