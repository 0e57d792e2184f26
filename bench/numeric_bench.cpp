// The numeric box's key filter and validation against Qt's validator and locale reader on
// the same realistic entries, typed one keystroke at a time as a user types them.
#include <benchmark/benchmark.h>

#include <QDoubleValidator>
#include <QLocale>
#include <QString>
#include <cstdint>
#include <string>
#include <vector>

#include "corvex/entry/numeric_rules.h"

namespace {

// What users type into numeric boxes of business forms, including mistakes.
const std::vector<std::u16string>& entries() {
    static const std::vector<std::u16string> e = {
        u"12",   u"-0.5",  u"1.5e-3", u"1980", u"99.99", u"-1234567.25", u"0.000001", u"3.14159",
        u"1e20", u"12abc", u"1.2.3",  u".5",   u"-.25",  u"100000",      u"2e-",      u"7",
    };
    return e;
}

std::int64_t keystrokes() {
    std::int64_t n = 0;
    for (const auto& e : entries()) n += static_cast<std::int64_t>(e.size());
    return n;
}

void filterCorvex(benchmark::State& state) {
    for (auto _ : state) {
        for (const auto& entry : entries()) {
            std::u16string text;
            for (char16_t c : entry) {
                const std::int16_t k = corvex::numeric::filterKey(
                    0, static_cast<std::int16_t>(c), static_cast<std::int32_t>(text.size()), text);
                if (k != 0) text += static_cast<char16_t>(k);
            }
            benchmark::DoNotOptimize(text);
        }
    }
    state.SetItemsProcessed(state.iterations() * keystrokes());
}

void filterQt(benchmark::State& state) {
    QDoubleValidator validator;
    validator.setLocale(QLocale::c());
    validator.setNotation(QDoubleValidator::ScientificNotation);
    validator.setDecimals(1000);
    validator.setRange(-1.7976931348623157e308, 1.7976931348623157e308, 1000);
    for (auto _ : state) {
        for (const auto& entry : entries()) {
            QString text;
            for (char16_t c : entry) {
                QString next = text + QChar(c);
                int pos = static_cast<int>(next.size());
                if (validator.validate(next, pos) != QValidator::Invalid) text = next;
            }
            benchmark::DoNotOptimize(text);
        }
    }
    state.SetItemsProcessed(state.iterations() * keystrokes());
}

corvex::numeric::MessageLookup english() {
    return [](int code) { return corvex::numeric::messages().text(code, false); };
}

void validateCorvex(benchmark::State& state) {
    const corvex::numeric::Limits limits{true, -1e6, 1e6};
    const auto lookup = english();
    for (auto _ : state) {
        for (const auto& entry : entries()) {
            benchmark::DoNotOptimize(corvex::numeric::validate(0, entry, limits, 12, lookup));
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(entries().size()));
}

// The nearest Qt equivalent: read with the C locale, check the range and the length of the
// normalised text, and format it back with 15 significant digits.
void validateQt(benchmark::State& state) {
    std::vector<QString> texts;
    for (const auto& e : entries()) texts.push_back(QString::fromStdU16String(e));
    const QLocale c = QLocale::c();
    for (auto _ : state) {
        for (const auto& t : texts) {
            bool ok = false;
            const double v = c.toDouble(t.isEmpty() ? QStringLiteral("0") : t, &ok);
            QString norm = ok ? QString::number(v, 'g', 15) : t;
            const bool valid = ok && v >= -1e6 && v <= 1e6 && norm.size() <= 12;
            benchmark::DoNotOptimize(norm);
            benchmark::DoNotOptimize(valid);
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(entries().size()));
}

}  // namespace

BENCHMARK(filterCorvex)->Name("KeyFilterPerKeystroke/corvex");
BENCHMARK(filterQt)->Name("KeyFilterPerKeystroke/qt");
BENCHMARK(validateCorvex)->Name("ValidateInput/corvex");
BENCHMARK(validateQt)->Name("ValidateInput/qt");
