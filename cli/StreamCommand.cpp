// `ringbook stream demo`: writes one value of every kind through CStream,
// reads them back and shows the bytes, so a person can see the file format.
#include <CLI/CLI.hpp>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "cli/Commands.h"
#include "core/CStream.h"
#include "core/DateTime.h"
#include "core/Error.h"

namespace ringbook::cli {
namespace {

void ThrowIfPosted() {
  const ErrorInfo& e = LastError();
  if (e.Number != 0) throw Error(e.Number, e.Source, e.Description);
}

void HexDump(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  const std::vector<unsigned char> bytes((std::istreambuf_iterator<char>(in)),
                                         std::istreambuf_iterator<char>());
  for (std::size_t i = 0; i < bytes.size(); i += 16) {
    std::printf("  %04zx ", i);
    for (std::size_t k = i; k < i + 16 && k < bytes.size(); ++k) std::printf(" %02x", bytes[k]);
    std::printf("\n");
  }
}

void RunDemo(const std::string& path) {
  const double date = DateFromParts(2026, 11, 21, 20, 30, 0);
  {
    CStream out;
    out.SetFilename(path);
    out.OpenStream(true);
    out.WriteBln(true);
    out.WriteByte(200);
    out.WriteInt(-2);
    out.WriteLng(1000001);
    out.WriteSng(2.5f);
    out.WriteDate(date);
    out.WriteStr("Zoë Çelik");
    out.WriteStr("Ring", 6);
    out.WriteVar(Variant(int16_t{42}));
    ThrowIfPosted();
    out.CloseStream();
    ThrowIfPosted();
  }
  std::printf("wrote %s (%ju bytes):\n", path.c_str(),
              static_cast<uintmax_t>(std::filesystem::file_size(path)));
  HexDump(path);

  CStream in;
  in.SetFilename(path);
  in.OpenStream(false);
  const bool b = in.ReadBln();
  const int byte = in.ReadByte();
  const int i = in.ReadInt();
  const long l = in.ReadLng();
  const double f = in.ReadSng();
  const std::string d = FormatDateTime(in.ReadDate());
  const std::string s = in.ReadStr();
  const std::string fixed = in.ReadStr(6);
  const std::string v = in.ReadVar().ToString();
  ThrowIfPosted();
  in.CloseStream();
  std::printf(
      "read back:\n  Bln %s\n  Byte %d\n  Int %d\n  Lng %ld\n  Sng %g\n  Date %s\n"
      "  Str \"%s\"\n  Str(6) \"%s\"\n  Var %s\n",
      b ? "True" : "False", byte, i, l, f, d.c_str(), s.c_str(), fixed.c_str(), v.c_str());
}

}  // namespace

void AddStreamCommands(CLI::App& app) {
  auto* stream = app.add_subcommand("stream", "Work with the binary stream format");
  stream->require_subcommand(1);
  auto* demo = stream->add_subcommand(
      "demo", "Write one value of every kind to a file, show its bytes and read it back");
  auto path = std::make_shared<std::string>();
  demo->add_option("file", *path, "File to write (default: a file in the temporary folder)");
  demo->callback([path] {
    RunDemo(path->empty() ? (std::filesystem::temp_directory_path() / "ringbook-demo.bin").string()
                          : *path);
  });
}

}  // namespace ringbook::cli
