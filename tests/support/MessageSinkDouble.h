#pragma once

#include <string>
#include <vector>

#include "core/HostServices.h"

namespace ringbook::test {

/// A message sink that keeps every text it is shown, in order.
class MessageSinkDouble : public IMessageSink {
 public:
  void Show(const std::string& text) override { messages_.push_back(text); }
  const std::vector<std::string>& Messages() const { return messages_; }

 private:
  std::vector<std::string> messages_;
};

}  // namespace ringbook::test
