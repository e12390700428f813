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

  uint64_t Size() const { return size_; }
  uint64_t Position() const { return pos_; }
  void Seek(uint64_t pos) { pos_ = pos; }

  /// Reads up to `n` bytes at the position and advances past them. Returns
  /// how many were read; fewer than `n` means the end of the file.
  std::size_t Read(void* out, std::size_t n) {
    if (pos_ >= window_start_ && pos_ + n <= window_start_ + window_len_) {
      std::memcpy(out, window_.data() + (pos_ - window_start_), n);
      pos_ += n;
      return n;
    }
    return ReadSlow(out, n);
  }

  /// Writes `n` bytes at the position and advances. False when the file is
  /// read-only or a write-back failed.
  bool Write(const void* in, std::size_t n) {
    if (writable_ && pos_ >= window_start_ && pos_ <= window_start_ + window_len_ &&
        pos_ + n <= window_start_ + kWindow) {
      WriteInWindow(in, n);
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
  void WriteInWindow(const void* in, std::size_t n) {
    const std::size_t off = static_cast<std::size_t>(pos_ - window_start_);
    std::memcpy(window_.data() + off, in, n);
    if (off < dirty_lo_) dirty_lo_ = off;
    if (off + n > dirty_hi_) dirty_hi_ = off + n;
    if (off + n > window_len_) window_len_ = off + n;
    pos_ += n;
    if (pos_ > size_) size_ = pos_;
  }
  /// Moves the window to start at `start`, loading the file's bytes there.
  bool LoadWindow(uint64_t start);

  std::FILE* file_ = nullptr;
  bool writable_ = false;
  std::vector<unsigned char> window_;
  uint64_t window_start_ = 0;
  std::size_t window_len_ = 0;  // bytes of the window that hold file data
  std::size_t dirty_lo_ = SIZE_MAX;
  std::size_t dirty_hi_ = 0;
  uint64_t pos_ = 0;
  uint64_t size_ = 0;
};

}  // namespace ringbook
