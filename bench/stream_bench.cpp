// Writing and reading back one million mixed values (Booleans, 16- and
// 32-bit integers, floats, dates and short texts) through CStream, against
// writing and reading the same bytes with one fwrite/fread of a prepared
// buffer. The values come as records of eight fields written in a fixed
// order, as the component's save routines write them. The stream is meant to
// stay within a small factor of the raw copy.
#include <benchmark/benchmark.h>

#include <bit>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

#include "core/CStream.h"
#include "core/Error.h"
#include "core/Text.h"

namespace {

using ringbook::CStream;

struct Record {
  bool flag;
  int16_t round;
  int32_t id;
  float rating;
  int16_t era;
  double date;
  int32_t purse;
  std::string name;
};
constexpr int kFieldsPerRecord = 8;
constexpr int kRecords = 1000000 / kFieldsPerRecord;

struct Data {
  std::vector<Record> records;
  std::vector<unsigned char> encoded;  // the same values as the stream writes them
};

void Put(std::vector<unsigned char>& out, uint64_t v, int width) {
  for (int i = 0; i < width; ++i) out.push_back(static_cast<unsigned char>(v >> (8 * i)));
}

template <class T, class Bits>
Bits BitsOf(T value) {
  Bits bits;
  std::memcpy(&bits, &value, sizeof bits);
  return bits;
}

const Data& TheData() {
  static const Data data = [] {
    Data d;
    // Short texts, one in five with characters outside ASCII.
    const std::string names[] = {"Boxer", "Zo\u00EB \u00C7elik", "Main event", "KO", "Judge"};
    uint32_t x = 12345;
    for (int i = 0; i < kRecords; ++i) {
      auto next = [&x] { return x = x * 1664525u + 1013904223u; };
      Record r{(next() & 1) != 0,
               static_cast<int16_t>(next()),
               static_cast<int32_t>(next()),
               static_cast<float>(next() % 1000) / 8.0f,
               static_cast<int16_t>(next() % 7),
               36526.0 + (next() % 100000) / 7.0,
               static_cast<int32_t>(next()),
               names[next() % 5] + " " + std::to_string(x % 1000)};
      Put(d.encoded, r.flag ? 0xFFFF : 0, 2);
      Put(d.encoded, static_cast<uint16_t>(r.round), 2);
      Put(d.encoded, static_cast<uint32_t>(r.id), 4);
      Put(d.encoded, BitsOf<float, uint32_t>(r.rating), 4);
      Put(d.encoded, static_cast<uint16_t>(r.era), 2);
      Put(d.encoded, BitsOf<double, uint64_t>(r.date), 8);
      Put(d.encoded, static_cast<uint32_t>(r.purse), 4);
      const std::string ansi = ringbook::text::ToAnsi(r.name);
      Put(d.encoded, ansi.size(), 4);
      d.encoded.insert(d.encoded.end(), ansi.begin(), ansi.end());
      d.records.push_back(std::move(r));
    }
    return d;
  }();
  return data;
}

std::string BenchFile(const char* name) {
  return (std::filesystem::temp_directory_path() / name).string();
}

void WriteThroughStream(const std::string& path) {
  std::remove(path.c_str());
  CStream s;
  s.SetFilename(path);
  s.OpenStream();
  for (const Record& r : TheData().records) {
    s.WriteBln(r.flag);
    s.WriteInt(r.round);
    s.WriteLng(r.id);
    s.WriteSng(r.rating);
    s.WriteInt(r.era);
    s.WriteDate(r.date);
    s.WriteLng(r.purse);
    s.WriteStr(r.name);
  }
  s.CloseStream();
}

// Every value read is consumed, by its bits: converting floats to integers
// would cost more than reading them.
uint64_t ReadThroughStream(const std::string& path) {
  CStream s;
  s.SetFilename(path);
  s.OpenStream();
  uint64_t sum = 0;
  for (int i = 0; i < kRecords; ++i) {
    sum += s.ReadBln();
    sum += static_cast<uint16_t>(s.ReadInt());
    sum += static_cast<uint32_t>(s.ReadLng());
    sum += std::bit_cast<uint32_t>(s.ReadSng());
    sum += static_cast<uint16_t>(s.ReadInt());
    sum += std::bit_cast<uint64_t>(s.ReadDate());
    sum += static_cast<uint32_t>(s.ReadLng());
    sum += s.ReadStr().size();
  }
  s.CloseStream();
  return sum;
}

void WriteRaw(const std::string& path) {
  const std::vector<unsigned char>& bytes = TheData().encoded;
  // A new file each time, as for the stream: truncating an existing one
  // costs the file system more than unlinking it.
  std::remove(path.c_str());
  std::FILE* f = std::fopen(path.c_str(), "wb");
  std::fwrite(bytes.data(), 1, bytes.size(), f);
  std::fclose(f);
}

uint64_t ReadRaw(const std::string& path, std::vector<unsigned char>& buffer) {
  std::FILE* f = std::fopen(path.c_str(), "rb");
  const std::size_t n = std::fread(buffer.data(), 1, buffer.size(), f);
  std::fclose(f);
  return n + buffer[n / 2];
}

void Count(benchmark::State& state, int passes) {
  state.SetItemsProcessed(state.iterations() * kRecords * kFieldsPerRecord * passes);
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(TheData().encoded.size()) *
                          passes);
}

void BM_StreamWriteRead(benchmark::State& state) {
  const std::string path = BenchFile("ringbook-bench-stream.bin");
  ringbook::ClearLastError();
  for (auto _ : state) {
    WriteThroughStream(path);
    benchmark::DoNotOptimize(ReadThroughStream(path));
  }
  if (ringbook::LastError().Number != 0) state.SkipWithError("stream error");
  Count(state, 2);
  std::remove(path.c_str());
}

void BM_RawWriteRead(benchmark::State& state) {
  const std::string path = BenchFile("ringbook-bench-raw.bin");
  std::vector<unsigned char> buffer(TheData().encoded.size());
  for (auto _ : state) {
    WriteRaw(path);
    benchmark::DoNotOptimize(ReadRaw(path, buffer));
  }
  if (buffer != TheData().encoded) state.SkipWithError("raw copy differs");
  Count(state, 2);
  std::remove(path.c_str());
}

void BM_StreamWrite(benchmark::State& state) {
  const std::string path = BenchFile("ringbook-bench-stream-w.bin");
  for (auto _ : state) WriteThroughStream(path);
  Count(state, 1);
  std::remove(path.c_str());
}

void BM_RawWrite(benchmark::State& state) {
  const std::string path = BenchFile("ringbook-bench-raw-w.bin");
  for (auto _ : state) WriteRaw(path);
  Count(state, 1);
  std::remove(path.c_str());
}

void BM_StreamRead(benchmark::State& state) {
  const std::string path = BenchFile("ringbook-bench-stream-r.bin");
  WriteThroughStream(path);
  for (auto _ : state) benchmark::DoNotOptimize(ReadThroughStream(path));
  Count(state, 1);
  std::remove(path.c_str());
}

void BM_RawRead(benchmark::State& state) {
  const std::string path = BenchFile("ringbook-bench-raw-r.bin");
  WriteRaw(path);
  std::vector<unsigned char> buffer(TheData().encoded.size());
  for (auto _ : state) benchmark::DoNotOptimize(ReadRaw(path, buffer));
  Count(state, 1);
  std::remove(path.c_str());
}

// The stream must produce exactly the prepared bytes, or the comparison
// means nothing.
void BM_CheckSameBytes(benchmark::State& state) {
  const std::string path = BenchFile("ringbook-bench-check.bin");
  WriteThroughStream(path);
  std::vector<unsigned char> buffer(TheData().encoded.size() + 1);
  std::FILE* f = std::fopen(path.c_str(), "rb");
  const std::size_t n = std::fread(buffer.data(), 1, buffer.size(), f);
  std::fclose(f);
  buffer.resize(n);
  std::remove(path.c_str());
  for (auto _ : state) benchmark::DoNotOptimize(n);
  if (buffer != TheData().encoded) state.SkipWithError("stream bytes differ from raw bytes");
}

}  // namespace

BENCHMARK(BM_CheckSameBytes)->Iterations(1);
BENCHMARK(BM_StreamWriteRead)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RawWriteRead)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_StreamWrite)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RawWrite)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_StreamRead)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RawRead)->Unit(benchmark::kMillisecond);
