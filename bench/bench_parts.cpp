// The parts of the conversion one by one, and how their time grows with the number of element sets.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cstdio>
#include <string>

#include "core/element_lines.h"
#include "core/palm_database.h"
#include "core/pocket_pc_file.h"
#include "services/base/file_type.h"
#include "services/base/folder_item.h"
#include "services/base/text_decoder.h"

namespace {

using namespace celestrix;

constexpr char kName[] = "SAT000001";
constexpr char kLine1[] = "1 00001U 26001A   26325.50000000  .00001000  00000-0  10000-4 0  9999";
constexpr char kLine2[] = "2 00001  51.6000 120.0000 0001000  90.0000 270.0000 15.50000000    19";

/// The text of that many element sets, with `lineEnding` behind every line.
std::string Text(std::int64_t sets, const std::string& lineEnding = "\n", const std::string& name = kName) {
  const std::string set = name + lineEnding + kLine1 + lineEnding + kLine2 + lineEnding;
  std::string text;
  text.reserve(static_cast<std::size_t>(sets) * set.size());
  for (std::int64_t k = 0; k < sets; ++k) text += set;
  return text;
}

void Sizes(benchmark::internal::Benchmark* benchmark) {
  benchmark->RangeMultiplier(4)->Range(1 << 12, 1 << 18)->Unit(benchmark::kMillisecond)->Complexity();
}

void SplitText(benchmark::State& state) {
  const String text(Text(state.range(0)));
  for (auto _ : state) benchmark::DoNotOptimize(Split(text, EndOfLine()));
  state.SetComplexityN(state.range(0));
}
BENCHMARK(SplitText)->Apply(Sizes);

void NormaliseLines(benchmark::State& state) {
  const String text(Text(state.range(0)));
  for (auto _ : state) {
    state.PauseTiming();
    Ref<StringArray> lines = Split(text, EndOfLine());
    state.ResumeTiming();
    Normalise(lines);
    state.PauseTiming();
    lines = nullptr;
    state.ResumeTiming();
  }
  state.SetComplexityN(state.range(0));
}
BENCHMARK(NormaliseLines)->Apply(Sizes);

void RemoveEveryOtherLine(benchmark::State& state) {
  const String text(Text(state.range(0), "\n\n"));
  for (auto _ : state) {
    state.PauseTiming();
    Ref<StringArray> lines = Split(text, EndOfLine());
    state.ResumeTiming();
    for (std::int32_t i = lines->UpperBound(); i >= 0; --i)
      if (LenB(lines->Get(i)) == 0) lines->Remove(i);
    state.PauseTiming();
    lines = nullptr;
    state.ResumeTiming();
  }
  state.SetComplexityN(state.range(0));
}
BENCHMARK(RemoveEveryOtherLine)->Apply(Sizes);

void WriteFile(benchmark::State& state, void (*write)(const Ref<BinaryStream>&, const Ref<StringArray>&), bool palm) {
  const Ref<StringArray> lines = ElementLines(String(Text(state.range(0))));
  const std::string path = "/dev/shm/bench_parts." + std::to_string(getpid());
  FileType type;
  type.Name = "Output"_s;
  for (auto _ : state) {
    const Ref<BinaryStream> stream = FolderItem(path).CreateBinaryFile(type);
    stream->LittleEndian(!palm);
    write(stream, lines);
    stream->Close();
    state.PauseTiming();
    std::remove(path.c_str());
    state.ResumeTiming();
  }
  state.SetComplexityN(state.range(0));
}
BENCHMARK_CAPTURE(WriteFile, palm, WritePalmDatabase, true)->Apply(Sizes);
BENCHMARK_CAPTURE(WriteFile, pocket_pc, WritePocketPcFile, false)->Apply(Sizes);

std::string Utf16(const std::string& ascii) {
  std::string text = "\xFF\xFE";
  for (char c : ascii) text += {c, '\0'};
  return text;
}

void Decode(benchmark::State& state, std::string (*encoded)(std::int64_t sets)) {
  const String bytes(encoded(state.range(0)));
  for (auto _ : state) benchmark::DoNotOptimize(DecodeText(bytes));
  state.SetComplexityN(state.range(0));
}
BENCHMARK_CAPTURE(Decode, ascii, [](std::int64_t sets) { return Text(sets); })->Apply(Sizes);
BENCHMARK_CAPTURE(Decode, utf8, [](std::int64_t sets) { return Text(sets, "\n", "SATÉLLITE"); })->Apply(Sizes);
BENCHMARK_CAPTURE(Decode, windows1252, [](std::int64_t sets) {
  return Text(sets, "\n", "SAT\xC9LLITE");
})->Apply(Sizes);
BENCHMARK_CAPTURE(Decode, utf16, [](std::int64_t sets) { return Utf16(Text(sets)); })->Apply(Sizes);

}  // namespace

BENCHMARK_MAIN();
