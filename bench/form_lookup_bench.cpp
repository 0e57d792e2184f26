// Finding a control by name on a form of growing size: the form model's case-insensitive
// index, against QObject::findChild over the same number of named children. A script or
// a settings walk looks controls up by name all the time, so the cost must not grow with
// the form.
#include <benchmark/benchmark.h>

#include <QObject>
#include <QString>
#include <memory>
#include <string>
#include <vector>

#include "corvex/common/boolean_box.h"
#include "corvex/headless/host.h"

namespace {

std::u16string nameOf(std::int64_t i) {
    const std::string ascii = "chkItem" + std::to_string(i);
    return std::u16string(ascii.begin(), ascii.end());
}

void FindControlByName_corvex(benchmark::State& state) {
    corvex::headless::Host host;
    corvex::headless::HeadlessForm form(host);
    const std::int64_t n = state.range(0);
    for (std::int64_t i = 0; i < n; ++i) form.add(corvex::BooleanBox::staticClassInfo(), nameOf(i));
    // Looked up in another case than it was given, as the form designer's names may be.
    std::u16string wanted = nameOf(n / 2);
    wanted[0] = u'C';
    for (auto _ : state) benchmark::DoNotOptimize(form.find(wanted));
    state.SetComplexityN(n);
}

void FindControlByName_qt(benchmark::State& state) {
    QObject parent;
    const std::int64_t n = state.range(0);
    for (std::int64_t i = 0; i < n; ++i) {
        auto* child = new QObject(&parent);
        child->setObjectName(QString::fromStdU16String(nameOf(i)));
    }
    const QString wanted = QString::fromStdU16String(nameOf(n / 2));
    for (auto _ : state) {
        benchmark::DoNotOptimize(parent.findChild<QObject*>(wanted, Qt::FindDirectChildrenOnly));
    }
    state.SetComplexityN(n);
}

}  // namespace

BENCHMARK(FindControlByName_corvex)
    ->Name("FindControlByName/corvex")
    ->RangeMultiplier(8)
    ->Range(1 << 6, 1 << 15)
    ->Complexity();
BENCHMARK(FindControlByName_qt)
    ->Name("FindControlByName/qt")
    ->RangeMultiplier(8)
    ->Range(1 << 6, 1 << 15)
    ->Complexity();
