#pragma once

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string>

#include "core/CStream.h"

namespace ringbook {

/// A binary file with one window of buffered bytes, read and written at an
/// explicit 0-based offset. Reads and writes inside the window are memory
/// copies; the window is written back when it moves, on `Flush` and on close.
/// Writing past the end of the file extends it, filling any gap with zeros.
///
/// The window's cursor lives in a `detail::StreamWindow` that the owning
/// stream holds, so that the stream's fixed-width readers and writers can
/// work on it inline; this class keeps it consistent on every other call,
/// each of which first settles the length the inline writes left behind.
class BufferedFile {
 public:
  enum class Mode { kReadOnly, kReadWrite };
  using Window = detail::StreamWindow;

  // The window's bytes are left as they come: they are file data only once
  // loaded or written. The slack, which is never file data, reads as zeros.
  explicit BufferedFile(Window& window)
      : w_(window),
        window_(std::make_unique_for_overwrite<unsigned char[]>(Window::kSize + Window::kSlack)) {
    std::memset(window_.get() + Window::kSize, 0, Window::kSlack);
    w_.base = window_.get();
    w_.end = w_.base;
    w_.limit = w_.base;
    Detach(0);
  }
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
    const uint64_t window_end = window_start_ + w_.DataLen();
    return size_ > window_end ? size_ : window_end;
  }
  uint64_t Position() const {
    return w_.Pos() == Window::kDetached ? detached_pos_ : window_start_ + w_.Pos();
  }
  void Seek(uint64_t pos) {
    w_.Settle();
    if (file_ != nullptr && pos >= window_start_ && pos - window_start_ <= w_.Len()) {
      w_.SetPos(static_cast<std::size_t>(pos - window_start_));
      if (w_.Pos() < w_.dirty_lo) w_.Disarm();  // below the dirty bytes: writes re-arm
    } else {
      Detach(pos);
    }
  }

  /// Reads up to `n` bytes at the position and advances past them. Returns
  /// how many were read; fewer than `n` means the end of the file.
  std::size_t Read(void* out, std::size_t n) {
    const unsigned char* p;
    if (Take(n, p)) {
      if (n != 0) std::memcpy(out, p, n);
      return n;
    }
    return ReadSlow(out, n);
  }

  /// When the window already holds the next `n` bytes: points `p` at them,
  /// advances past them and returns true. The bytes stay valid until the next
  /// call that reads, writes or seeks. Otherwise returns false and does not
  /// move.
  bool Take(std::size_t n, const unsigned char*& p) {
    w_.Settle();
    if (w_.Pos() <= w_.Len() && n <= w_.Len() - w_.Pos()) {
      p = w_.cur;
      w_.cur += n;
      return true;
    }
    return false;
  }

  /// When the next `n` bytes fit in the window without leaving a gap: points
  /// `p` at them, advances past them and returns true; the caller fills them
  /// in before the next call. Otherwise returns false and does not move.
  bool Reserve(std::size_t n, unsigned char*& p) {
    w_.Settle();
    const std::size_t pos = w_.Pos();
    if (writable_ && pos <= w_.Len() && n <= kWindow - pos) {
      if (pos < w_.dirty_lo) w_.dirty_lo = pos;
      w_.Arm();  // every byte from here on is dirty: inline writes may go on
      w_.SetPos(pos + n);
      if (w_.Pos() > w_.Len()) w_.SetLen(w_.Pos());
      p = w_.base + pos;
      return true;
    }
    return false;
  }

  /// Writes `n` bytes at the position and advances. False when the file is
  /// not open for writing or a write-back failed.
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
  static constexpr std::size_t kWindow = Window::kSize;

  std::size_t ReadSlow(void* out, std::size_t n);
  bool WriteSlow(const void* in, std::size_t n);
  /// Puts the system's file position at `at`. A pass that reads or writes
  /// the file in order never needs to seek, so the position is only moved
  /// when it is not where the last transfer left it.
  bool MoveTo(uint64_t at, bool for_write);
  /// Moves the window to start at `start`, loading the file's bytes there;
  /// the position is then the window's first byte.
  bool LoadWindow(uint64_t start);
  /// Keeps the position outside the window.
  void Detach(uint64_t pos) {
    w_.Settle();
    detached_pos_ = pos;
    w_.SetPos(Window::kDetached);
    w_.Disarm();
  }

  Window& w_;
  std::FILE* file_ = nullptr;
  bool writable_ = false;
  std::unique_ptr<unsigned char[]> window_;
  uint64_t window_start_ = 0;
  uint64_t detached_pos_ = 0;  // the position while it is outside the window
  uint64_t size_ = 0;          // the length before the window's bytes are counted in
  static constexpr uint64_t kUnknownPos = UINT64_MAX;
  uint64_t file_pos_ = kUnknownPos;  // where the last transfer left the system's position
  bool last_was_read_ = false;
};

}  // namespace ringbook
