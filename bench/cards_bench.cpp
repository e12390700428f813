// Saving and loading a four-level tournament (15 bouts, each with its
// options and officials: about 6 KB in some 1,500 values), against writing
// and reading the same bytes with one fwrite and one fread. The record code
// is meant to stay within 3x of the raw copy.
//
// A save commits through a temporary file that the utility object puts in
// place of the target. The default utility flushes the file to disk before
// the rename, which costs far more than everything else: the "_Rename"
// benchmark uses a utility that only renames, to measure the record code
// against the plain fwrite/fread; the "_Durable" pair pays the flush and the
// rename on both sides. The load alone is compared with the fread alone.
#include <benchmark/benchmark.h>

#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "core/DefaultSettings.h"
#include "core/DefaultUtility.h"
#include "core/HostServices.h"
#include "schedule/CTournament.h"

namespace {

namespace fs = std::filesystem;
using ringbook::CTournament;

// Puts the temporary file in place with a rename alone.
class RenameOnlyUtility : public ringbook::DefaultUtility {
 public:
  void ReplaceFile(const std::string& target, const std::string& temporary) override {
    std::error_code ec;
    fs::rename(temporary, target, ec);
  }
};

// The folder for the options files and the saved tournaments.
const fs::path& Folder() {
  // Never destroyed, so that the clean-up at exit can still use it.
  static const fs::path* dir = [] {
    auto* d = new fs::path(fs::temp_directory_path() /
                           ("ringbook-bench-cards-" + std::to_string(::getpid())));
    fs::create_directories(*d);
    ringbook::SetSettings(
        std::make_shared<ringbook::DefaultSettings>((*d / "none.db").string(), d->string()));
    std::atexit([] {
      std::error_code ec;
      fs::remove_all(*dir, ec);
    });
    return d;
  }();
  return *dir;
}

std::string PathOf(const char* name) {
  return (Folder() / name).string();
}

// A four-level tournament whose bouts carry names and figures.
CTournament& Tournament() {
  static CTournament* t = [] {
    Folder();
    auto* tournament = new CTournament;
    tournament->SetLevels(4);
    tournament->SetName("Bench Open");
    for (int16_t l = 1; l <= 4; ++l) {
      const auto level = tournament->Level(l);
      for (int16_t i = 1; i <= level->BoutCount(); ++i) {
        const auto bout = level->Bout(i);
        for (int16_t f = 1; f <= 2; ++f) {
          bout->SetFighterFirstName(f, "Fighter");
          bout->SetFighterLastName(f, "Number " + std::to_string(l * 100 + i * 2 + f));
          bout->SetFighterID(f, l * 1000 + i * 10 + f);
          bout->SetRating(f, static_cast<int16_t>(60 + i + f));
          bout->SetDrawPower(f, static_cast<int16_t>(l));
        }
        bout->Options()->Referee()->SetLastName("Referee");
        bout->Options()->Location()->SetArena("Arena");
      }
    }
    return tournament;
  }();
  return *t;
}

std::vector<unsigned char> FileBytes(const std::string& path) {
  std::vector<unsigned char> bytes(fs::file_size(path));
  std::FILE* f = std::fopen(path.c_str(), "rb");
  const size_t n = std::fread(bytes.data(), 1, bytes.size(), f);
  std::fclose(f);
  bytes.resize(n);
  return bytes;
}

// The bytes of the tournament as it saves.
const std::vector<unsigned char>& TournamentBytes() {
  static const std::vector<unsigned char> bytes = [] {
    Tournament().SaveToFile(PathOf("reference.rbt"));
    return FileBytes(PathOf("reference.rbt"));
  }();
  return bytes;
}

void SaveAndLoad(benchmark::State& state) {
  CTournament& t = Tournament();
  CTournament loaded;
  const std::string path = PathOf("tournament.rbt");
  for (auto _ : state) {
    t.SaveToFile(path);
    loaded.LoadFromFile(path);
    benchmark::DoNotOptimize(loaded.Level(4)->Bout(8)->Rating(2));
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) *
                          static_cast<int64_t>(TournamentBytes().size()) * 2);
}

// One fwrite of the tournament's bytes and one fread back. `durable` writes
// a temporary file, flushes it to disk and renames it over the target, as
// the default commit of a save does.
void RawWriteAndRead(benchmark::State& state, bool durable) {
  const std::vector<unsigned char>& bytes = TournamentBytes();
  std::vector<unsigned char> back(bytes.size());
  const std::string path = PathOf("raw.bin");
  const std::string tmp = path + ".tmp";
  for (auto _ : state) {
    std::FILE* out = std::fopen(durable ? tmp.c_str() : path.c_str(), "wb");
    std::fwrite(bytes.data(), 1, bytes.size(), out);
    if (durable) {
      std::fflush(out);
      ::fsync(::fileno(out));
    }
    std::fclose(out);
    if (durable) std::rename(tmp.c_str(), path.c_str());
    std::FILE* in = std::fopen(path.c_str(), "rb");
    benchmark::DoNotOptimize(std::fread(back.data(), 1, back.size(), in));
    std::fclose(in);
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) *
                          static_cast<int64_t>(bytes.size()) * 2);
}

void BM_TournamentSaveLoad_Rename(benchmark::State& state) {
  ringbook::SetUtility(std::make_shared<RenameOnlyUtility>());
  SaveAndLoad(state);
  ringbook::SetUtility(nullptr);
}
BENCHMARK(BM_TournamentSaveLoad_Rename);

void BM_RawFwriteFread(benchmark::State& state) {
  RawWriteAndRead(state, false);
}
BENCHMARK(BM_RawFwriteFread);

void BM_TournamentLoad(benchmark::State& state) {
  TournamentBytes();
  CTournament loaded;
  for (auto _ : state) {
    loaded.LoadFromFile(PathOf("reference.rbt"));
    benchmark::DoNotOptimize(loaded.Level(4)->Bout(8)->Rating(2));
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) *
                          static_cast<int64_t>(TournamentBytes().size()));
}
BENCHMARK(BM_TournamentLoad);

void BM_RawFread(benchmark::State& state) {
  const std::string path = PathOf("reference.rbt");
  std::vector<unsigned char> back(TournamentBytes().size());
  for (auto _ : state) {
    std::FILE* in = std::fopen(path.c_str(), "rb");
    benchmark::DoNotOptimize(std::fread(back.data(), 1, back.size(), in));
    std::fclose(in);
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) *
                          static_cast<int64_t>(back.size()));
}
BENCHMARK(BM_RawFread);

void BM_TournamentSaveLoad_Durable(benchmark::State& state) {
  SaveAndLoad(state);
}
BENCHMARK(BM_TournamentSaveLoad_Durable)->Unit(benchmark::kMicrosecond);

void BM_RawFwriteFread_Durable(benchmark::State& state) {
  RawWriteAndRead(state, true);
}
BENCHMARK(BM_RawFwriteFread_Durable)->Unit(benchmark::kMicrosecond);

}  // namespace
