#pragma once

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

namespace ringbook {

/// A binary file with one window of buffered bytes, read and written at an
/// explicit 0-based offset. Reads and writes inside the window are memory
/// copies; the window is written back when it moves, on `Flush` and on close.
/// Writing past the end of the file extends it, filling any gap with zeros.
class BufferedFile {
 public:
  enum class Mode { kReadOnly, kReadWrite };

  BufferedFile() = default;
  BufferedFile(const BufferedFile&) = delete;
  BufferedFile& operator=(const BufferedFile&) = delete;
  ~BufferedFile() { Close(); }

  /// Opens `path` (UTF-8). In read-write mode a missing file is created and
  /// an existing one is kept as it is (not truncated). On failure returns
  /// false and leaves the system's error code in `error`.
  bool Open(const std::string& path, Mode mode, int& error);
  /// Writes back pending bytes and closes; false if that write failed.
  bool Close();
  bool IsOpen() const { return file_ != nullptr; }

  /// The file's length, including bytes written into the window but not yet
  /// to the file.
  uint64_t Size() const {
    const uint64_t window_end = window_start_ + window_len_;
    return size_ > window_end ? size_ : window_end;
  }
  uint64_t Position() const { return pos_; }
  void Seek(uint64_t pos) { pos_ = pos; }

  /// Reads up to `n` bytes at the position and advances past them. Returns
  /// how many were read; fewer than `n` means the end of the file.
  std::size_t Read(void* out, std::size_t n) {
    const unsigned char* p;
    if (Take(n, p)) {
      std::memcpy(out, p, n);
      return n;
    }
    return ReadSlow(out, n);
  }

  /// When the window already holds the next `n` bytes: points `p` at them,
  /// advances past them and returns true. The bytes stay valid until the next
  /// call that reads, writes or seeks. Otherwise returns false and does not
  /// move.
  bool Take(std::size_t n, const unsigned char*& p) {
    // `off` wraps to a huge value when the position is before the window.
    const uint64_t off = pos_ - window_start_;
    if (off <= window_len_ && n <= window_len_ - off) {
      p = window_.data() + off;
      pos_ += n;
      return true;
    }
    return false;
  }

  /// When the next `n` bytes fit in the window without leaving a gap: points
  /// `p` at them, advances past them and returns true; the caller fills them
  /// in before the next call. Otherwise returns false and does not move.
  bool Reserve(std::size_t n, unsigned char*& p) {
    const uint64_t off = pos_ - window_start_;
    if (writable_ && off <= window_len_ && n <= kWindow - off) {
      const auto o = static_cast<std::size_t>(off);
      if (o < dirty_lo_) dirty_lo_ = o;
      if (o + n > window_len_) window_len_ = o + n;
      p = window_.data() + o;
      pos_ += n;
      return true;
    }
    return false;
  }

  /// Writes `n` bytes at the position and advances. False when the file is
  /// read-only or a write-back failed.
  bool Write(const void* in, std::size_t n) {
    unsigned char* p;
    if (Reserve(n, p)) {
      if (n != 0) std::memcpy(p, in, n);
      return true;
    }
    return WriteSlow(in, n);
  }

  /// Writes pending bytes to the file; false on failure.
  bool Flush();

 private:
  static constexpr std::size_t kWindow = 64 * 1024;

  std::size_t ReadSlow(void* out, std::size_t n);
  bool WriteSlow(const void* in, std::size_t n);
  /// Moves the window to start at `start`, loading the file's bytes there.
  bool LoadWindow(uint64_t start);

  std::FILE* file_ = nullptr;
  bool writable_ = false;
  std::vector<unsigned char> window_;
  uint64_t window_start_ = 0;
  std::size_t window_len_ = 0;  // bytes of the window that hold file data
  // Window bytes from here to `window_len_` may differ from the file. Bytes
  // in that range that were not written hold what was loaded, so writing the
  // whole range back is harmless.
  std::size_t dirty_lo_ = SIZE_MAX;
  uint64_t pos_ = 0;
  uint64_t size_ = 0;  // the length before the window's bytes are counted in
};

}  // namespace ringbook
