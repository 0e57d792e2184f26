// Number <-> text conversions against Qt's on the same mixed inputs, the kind a form sees:
// whole numbers, money amounts, fractions, exponents, padded and non-numeric entries.
#include <benchmark/benchmark.h>

#include <QLocale>
#include <QString>
#include <cstdint>
#include <string>
#include <vector>

#include "corvex/common/number_text.h"

namespace {

const std::vector<double>& valuesToWrite() {
    static const std::vector<double> values = {
        12,
        -0.5,
        1.5e-3,
        42,
        3.14159265358979,
        1e20,
        123456.789,
        0.1 + 0.2,
        99.99,
        -1234567.25,
        2.0 / 3.0,
        1.5e-7,
        0,
        65535,
        4.9406564584124654e-324,
        1.7976931348623157e308,
    };
    return values;
}

const std::vector<std::u16string>& textsToRead() {
    static const std::vector<std::u16string> texts = {
        u"12",
        u"-0.5",
        u"1.5e-3",
        u" 42 ",
        u"3.14159265358979",
        u"1E+20",
        u"abc",
        u"99.99",
        u"-1234567.25",
        u"0.000001",
        u"",
        u"1,5",
        u"65535",
        u"2.2250738585072014E-308",
        u".5",
        u"7x",
    };
    return texts;
}

std::vector<QString> asQStrings(const std::vector<std::u16string>& texts) {
    std::vector<QString> out;
    for (const auto& t : texts) out.push_back(QString::fromStdU16String(t));
    return out;
}

void formatCorvex(benchmark::State& state) {
    const auto& values = valuesToWrite();
    for (auto _ : state) {
        for (double d : values) benchmark::DoNotOptimize(corvex::formatDouble(d));
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(values.size()));
}

void formatQt(benchmark::State& state) {
    const auto& values = valuesToWrite();
    for (auto _ : state) {
        for (double d : values) benchmark::DoNotOptimize(QString::number(d, 'g', 15));
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(values.size()));
}

void parseCorvex(benchmark::State& state) {
    const auto& texts = textsToRead();
    for (auto _ : state) {
        for (const auto& t : texts) benchmark::DoNotOptimize(corvex::parseDouble(t));
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(texts.size()));
}

void parseQtString(benchmark::State& state) {
    const std::vector<QString> texts = asQStrings(textsToRead());
    for (auto _ : state) {
        for (const auto& t : texts) {
            bool ok = false;
            benchmark::DoNotOptimize(t.toDouble(&ok));
            benchmark::DoNotOptimize(ok);
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(texts.size()));
}

void parseQtLocale(benchmark::State& state) {
    const std::vector<QString> texts = asQStrings(textsToRead());
    const QLocale c = QLocale::c();
    for (auto _ : state) {
        for (const auto& t : texts) {
            bool ok = false;
            benchmark::DoNotOptimize(c.toDouble(t, &ok));
            benchmark::DoNotOptimize(ok);
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(texts.size()));
}

}  // namespace

BENCHMARK(formatCorvex)->Name("FormatDouble/corvex");
BENCHMARK(formatQt)->Name("FormatDouble/qt");
BENCHMARK(parseCorvex)->Name("ParseDouble/corvex");
BENCHMARK(parseQtString)->Name("ParseDouble/qt");
// The same reader against the C locale's reader.
BENCHMARK(parseCorvex)->Name("ParseDoubleCLocale/corvex");
BENCHMARK(parseQtLocale)->Name("ParseDoubleCLocale/qt");
