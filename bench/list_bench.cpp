// Filling a list of growing length: ListBoxEx on the headless host (its rebuild from
// ListTexts of two-unit items, and AddItem one by one with the automatic scroll-bar refresh on,
// each item measured) against QListWidget::addItems on the same texts. Then the widest item removed
// again and again, each removal measuring the rest. The cost of a fill should grow with
// the number of items and no faster; the growth from 1,000 to 10,000 items is printed.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QListWidget>
#include <QStringList>
#include <cstdio>
#include <string>
#include <vector>

#include "corvex/headless/host.h"
#include "corvex/lists/list_box_ex.h"

namespace {

constexpr int kRemovals = 50;

void ensureApplication() {
    static int argc = 1;
    static char name[] = "corvex-list-bench";
    static char* argv[] = {name, nullptr};
    // Never destroyed: a QApplication that goes with the static destructors crashes.
    static QApplication* app = nullptr;
    if (app) return;
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    app = new QApplication(argc, argv);
}

// n item texts of varied length; the last kRemovals grow one unit each, so that the last
// item is always the widest one left.
std::vector<std::u16string> texts(std::int64_t n) {
    std::vector<std::u16string> out;
    for (std::int64_t i = 0; i < n; ++i) {
        const std::string digits = std::to_string(i);
        std::u16string t = u"Item " + std::u16string(digits.begin(), digits.end());
        const std::int64_t fromEnd = n - i;
        const std::size_t pad = fromEnd <= kRemovals ? static_cast<std::size_t>(100 - fromEnd)
                                                     : static_cast<std::size_t>(i % 40);
        t.append(pad, u'x');
        out.push_back(std::move(t));
    }
    return out;
}

// n two-unit item texts: a list text walks at most 32767 units, so 10,000 items joined
// with their delimiters (29,999 units) must be this short.
std::vector<std::u16string> shortTexts(std::int64_t n) {
    static const std::u16string digits =
        u"0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    const auto base = static_cast<std::int64_t>(digits.size());
    std::vector<std::u16string> out;
    for (std::int64_t i = 0; i < n; ++i) {
        out.push_back({digits[static_cast<std::size_t>(i / base % base)],
                       digits[static_cast<std::size_t>(i % base)]});
    }
    return out;
}

std::u16string joined(const std::vector<std::u16string>& items) {
    std::u16string text;
    for (const auto& t : items) {
        if (!text.empty()) text += u'|';
        text += t;
    }
    return text;
}

QStringList qtTexts(const std::vector<std::u16string>& items) {
    QStringList out;
    for (const auto& t : items) out << QString::fromStdU16String(t);
    return out;
}

struct HeadlessList {
    corvex::headless::Host host;
    corvex::headless::HeadlessForm form{host};
    corvex::ListBoxEx& c;
    HeadlessList()
        : c(dynamic_cast<corvex::ListBoxEx&>(
              form.add(corvex::ListBoxEx::staticClassInfo(), u"lst").control())) {}
};

void ListTexts_corvex(benchmark::State& state) {
    HeadlessList l;
    const std::u16string text = joined(shortTexts(state.range(0)));
    for (auto _ : state) l.c.setListTexts(text);
    state.SetComplexityN(state.range(0));
}

// QListWidget::addItems on the texts, into a list emptied first.
void addItemsQt(benchmark::State& state, const std::vector<std::u16string>& texts) {
    ensureApplication();
    QListWidget list;
    const QStringList items = qtTexts(texts);
    for (auto _ : state) {
        list.clear();
        list.addItems(items);
    }
    state.SetComplexityN(state.range(0));
}

void ListTexts_qt(benchmark::State& state) {
    addItemsQt(state, shortTexts(state.range(0)));
}

void AddItem_corvex(benchmark::State& state) {
    HeadlessList l;
    const auto items = texts(state.range(0));
    for (auto _ : state) {
        l.c.clear();
        for (const auto& t : items) l.c.addItem(t, std::nullopt);
    }
    state.SetComplexityN(state.range(0));
}

void AddItem_qt(benchmark::State& state) {
    addItemsQt(state, texts(state.range(0)));
}

void RemoveWidest_corvex(benchmark::State& state) {
    HeadlessList l;
    const auto items = texts(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        l.c.clear();
        for (const auto& t : items) l.c.addItem(t, std::nullopt);
        state.ResumeTiming();
        for (int k = 0; k < kRemovals; ++k) l.c.removeItem(l.c.listCount() - 1);
    }
    state.SetComplexityN(state.range(0));
}

void RemoveWidest_qt(benchmark::State& state) {
    ensureApplication();
    QListWidget list;
    const QStringList items = qtTexts(texts(state.range(0)));
    for (auto _ : state) {
        state.PauseTiming();
        list.clear();
        list.addItems(items);
        state.ResumeTiming();
        for (int k = 0; k < kRemovals; ++k) delete list.takeItem(list.count() - 1);
    }
    state.SetComplexityN(state.range(0));
}

}  // namespace

BENCHMARK(ListTexts_corvex)->Name("ListTexts/corvex")->Arg(1000)->Arg(10000)->Complexity();
BENCHMARK(ListTexts_qt)->Name("ListTexts/qt")->Arg(1000)->Arg(10000)->Complexity();
BENCHMARK(AddItem_corvex)->Name("ListBoxEx.AddItem/corvex")->Arg(1000)->Arg(10000)->Complexity();
BENCHMARK(AddItem_qt)->Name("ListBoxEx.AddItem/qt")->Arg(1000)->Arg(10000)->Complexity();
BENCHMARK(RemoveWidest_corvex)
    ->Name("ListBoxEx.RemoveWidest/corvex")
    ->Arg(1000)
    ->Arg(10000)
    ->Complexity();
BENCHMARK(RemoveWidest_qt)->Name("ListBoxEx.RemoveWidest/qt")->Arg(1000)->Arg(10000)->Complexity();
