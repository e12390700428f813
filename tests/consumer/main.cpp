// Links against the installed library and round-trips a value through a file.
#include <ringbook/ringbook.h>

#include <cstdio>
#include <filesystem>

int main() {
  const auto path = (std::filesystem::temp_directory_path() / "ringbook-consumer.bin").string();
  ringbook::CStream out;
  out.SetFilename(path);
  out.OpenStream(true);
  out.WriteLng(1000001);
  out.CloseStream();

  ringbook::CStream in;
  in.SetFilename(path);
  in.OpenStream();
  const int32_t marker = in.ReadLng();
  in.CloseStream();
  std::filesystem::remove(path);
  std::printf("ringbook %s read %d\n", ringbook::ComponentVersion::Text().c_str(), marker);
  return marker == 1000001 && ringbook::LastError().Number == 0 ? 0 : 1;
}
