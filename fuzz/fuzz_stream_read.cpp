// Reads arbitrary bytes as a saved file through every read primitive of the
// stream, in an order the input chooses, with seeks in between. Loading a
// damaged or hostile file must never crash, read out of bounds, throw or
// allocate more than the file holds.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "core/CStream.h"
#include "core/Error.h"

namespace {

volatile uint64_t g_sink = 0;

// One file per process, rewritten for every input: in memory (/dev/shm) when
// there is such a folder, since rewriting a disk file costs far more than
// reading it.
const std::string& InputPath() {
  static const std::string path = [] {
    std::string base = "/tmp";
    if (const char* dir = std::getenv("TMPDIR"); dir != nullptr && *dir != '\0') {
      base = dir;
    } else if (::access("/dev/shm", W_OK) == 0) {
      base = "/dev/shm";
    }
    return base + "/ringbook-fuzz-stream-" + std::to_string(::getpid()) + ".bin";
  }();
  static const bool cleanup = [] {
    std::atexit([] { std::remove(InputPath().c_str()); });
    return true;
  }();
  (void)cleanup;
  return path;
}

bool WriteInput(const uint8_t* data, size_t size) {
  std::FILE* f = std::fopen(InputPath().c_str(), "wb");
  if (f == nullptr) return false;
  const bool ok = size == 0 || std::fwrite(data, 1, size, f) == size;
  return std::fclose(f) == 0 && ok;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  // The first bytes (up to 16) choose the operations; the whole input is the
  // file, so the program bytes are also read as data.
  const size_t program_len = size < 16 ? size : 16;
  if (!WriteInput(data, size)) return 0;

  ringbook::CStream stream;
  stream.SetFilename(InputPath());
  stream.OpenStream(false);
  uint64_t sink = 0;
  for (size_t step = 0; step < 64; ++step) {
    const uint8_t op = program_len == 0 ? static_cast<uint8_t>(step) : data[step % program_len];
    switch (op % 12) {
      case 0:
        sink += stream.ReadBln();
        break;
      case 1:
        sink += stream.ReadByte();
        break;
      case 2:
        sink += static_cast<uint16_t>(stream.ReadInt());
        break;
      case 3:
        sink += static_cast<uint32_t>(stream.ReadLng());
        break;
      case 4:
        sink += static_cast<uint64_t>(stream.ReadSng() != 0);
        break;
      case 5:
        sink += static_cast<uint64_t>(stream.ReadDate() != 0);
        break;
      case 6:
        sink += stream.ReadStr().size();
        break;
      case 7:
        // Fixed lengths from 1 to 32, and now and then one far past the end.
        sink += stream.ReadStr(op >= 240 ? 0x7FFFFFFF : 1 + (op >> 3)).size();
        break;
      case 8: {
        const ringbook::Variant v = stream.ReadVar();
        // Every value read back must also print without throwing.
        if (!v.IsObject()) sink += v.ToText().size();
        break;
      }
      case 9:
        // Seek anywhere in or just past the file, 1-based.
        stream.SetSeekTo(1 + static_cast<int32_t>((op >> 4) * (size + 2) / 16));
        break;
      case 10:
        stream.SetSeekTo(1);
        break;
      default:
        sink += static_cast<uint32_t>(stream.SeekTo());
        break;
    }
  }
  stream.CloseStream();
  ringbook::ClearLastError();
  g_sink = sink;  // keeps the reads from being optimised away
  return 0;
}
