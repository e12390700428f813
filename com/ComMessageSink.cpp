#include "com/ComMessageSink.h"

#include <windows.h>

#include "com/Convert.h"
#include "com/Environment.h"
#include "core/Error.h"

namespace ringbook::com {

std::wstring ComMessageSink::LogFile() {
  return EnvironmentVariable(L"RINGBOOK_MESSAGE_LOG");
}

void ComMessageSink::Show(const std::string& text) {
  const std::wstring log = LogFile();
  if (log.empty()) {
    const std::wstring title = Wide(kComponentName);
    MessageBoxW(nullptr, Wide(text).c_str(), title.c_str(), MB_OK);
    return;
  }
  HANDLE file = CreateFileW(log.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE,
                            nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) {
    // A message that cannot be logged is not worth a blocking box: the
    // switch says the run is unattended.
    return;
  }
  const std::string line = text + "\r\n";
  DWORD written = 0;
  WriteFile(file, line.data(), static_cast<DWORD>(line.size()), &written, nullptr);
  CloseHandle(file);
}

}  // namespace ringbook::com
