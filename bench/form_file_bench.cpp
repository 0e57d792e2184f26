// Reading and writing form files of growing size: one control with ever more properties
// (duplicate names are looked for on every line) and ever more controls (the same for
// control names). The fitted complexity is printed after each family; it must stay N,
// not N squared. Timings are only reported.
#include <benchmark/benchmark.h>

#include <string>

#include "corvex/library/form_file.h"

namespace {

std::string oneControl(int properties) {
    std::string text = "CorvexForm 1\nBegin Form f\n  Begin BooleanBox b\n";
    for (int i = 0; i < properties; ++i) {
        text +=
            "    Property" + std::to_string(i) + " = String \"value " + std::to_string(i) + "\"\n";
    }
    return text + "  End\nEnd\n";
}

std::string manyControls(int controls) {
    std::string text = "CorvexForm 1\nBegin Form f\n";
    for (int i = 0; i < controls; ++i) {
        text += "  Begin NumInputBox txt" + std::to_string(i) + "\n";
        text +=
            "    Caption = String \"Amount\"\n    LowerLimit = Double 0.5\n"
            "    UpperLimit = Double 1000\n    KeyName = String \"k\"\n  End\n";
    }
    return text + "End\n";
}

void readOneControl(benchmark::State& state) {
    const std::string text = oneControl(static_cast<int>(state.range(0)));
    for (auto _ : state) benchmark::DoNotOptimize(corvex::parseFormFile(text));
    state.SetComplexityN(state.range(0));
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * text.size()));
}

void readManyControls(benchmark::State& state) {
    const std::string text = manyControls(static_cast<int>(state.range(0)));
    for (auto _ : state) benchmark::DoNotOptimize(corvex::parseFormFile(text));
    state.SetComplexityN(state.range(0));
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * text.size()));
}

void writeManyControls(benchmark::State& state) {
    const corvex::FormDocument doc =
        corvex::parseFormFile(manyControls(static_cast<int>(state.range(0))));
    for (auto _ : state) benchmark::DoNotOptimize(corvex::writeFormFile(doc));
    state.SetComplexityN(state.range(0));
}

}  // namespace

// Up to the reader's bounds: 65,536 properties (about 2.5 MB) and 65,536 controls
// (about 9 MB, past the 8 MB file that took half a minute when duplicates were searched
// for line by line).
BENCHMARK(readOneControl)->RangeMultiplier(4)->Range(1 << 10, 1 << 16)->Complexity();
BENCHMARK(readManyControls)->RangeMultiplier(4)->Range(1 << 10, 1 << 16)->Complexity();
BENCHMARK(writeManyControls)->RangeMultiplier(4)->Range(1 << 10, 1 << 16)->Complexity();
