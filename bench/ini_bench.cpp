// SettingHandle's group operations on forms of 10, 100 and 1,000 controls, and 10,000 reads
// of one INI file, set against QSettings in INI format doing the same writes and reads.
// Both sides work on real files in a temporary folder. Timings are only reported.
#include <benchmark/benchmark.h>

#include <QSettings>
#include <QString>
#include <QTemporaryDir>
#include <memory>
#include <string>

#include "corvex/common/boolean_box.h"
#include "corvex/common/text.h"
#include "corvex/headless/host.h"
#include "corvex/library/memory_bag.h"
#include "corvex/services/setting_handle.h"

namespace {

using namespace corvex;

std::string keyOf(int i) {
    return "Key" + std::to_string(i);
}

// A headless form of n BooleanBoxes (section "Form", keys Key0 ...) and a SettingHandle.
struct BenchForm {
    QTemporaryDir folder;
    headless::Host host;
    headless::HeadlessForm form{host};
    SettingHandle* handle = nullptr;
    std::vector<BooleanBox*> boxes;
    std::u16string path;

    explicit BenchForm(int n) {
        const std::string dir = folder.path().toStdString();
        host.profiles().setFolders({dir + "/ini", dir + "/settings"});
        path = fromUtf8(dir + "/form.ini");
        handle = &static_cast<SettingHandle&>(
            form.add(SettingHandle::staticClassInfo(), u"sh").control());
        for (int i = 0; i < n; ++i) {
            MemoryBag bag(
                {{u"SectionName", Variant(u"Form")}, {u"KeyName", Variant(fromUtf8(keyOf(i)))}});
            boxes.push_back(&static_cast<BooleanBox&>(
                form.load(BooleanBox::staticClassInfo(), fromUtf8("b" + std::to_string(i)), bag)
                    .control()));
        }
    }
    QString qtPath() const { return folder.path() + QStringLiteral("/qt.ini"); }
};

void SaveControlsToIni_corvex(benchmark::State& state) {
    BenchForm f(static_cast<int>(state.range(0)));
    bool on = false;
    for (auto _ : state) {
        // Every save changes every value, so that every save writes.
        on = !on;
        for (BooleanBox* b : f.boxes) b->setValue(on);
        f.handle->saveControlsToIni(Variant(f.path));
    }
}

void SaveControlsToIni_qt(benchmark::State& state) {
    BenchForm f(0);
    const int n = static_cast<int>(state.range(0));
    bool on = false;
    for (auto _ : state) {
        on = !on;
        QSettings s(f.qtPath(), QSettings::IniFormat);
        for (int i = 0; i < n; ++i) {
            s.setValue(QStringLiteral("Form/") + QString::fromStdString(keyOf(i)),
                       on ? QStringLiteral("True") : QStringLiteral("False"));
        }
        s.sync();
    }
}

void GetControlsFromIni_corvex(benchmark::State& state) {
    BenchForm f(static_cast<int>(state.range(0)));
    f.handle->saveControlsToIni(Variant(f.path));
    for (auto _ : state) {
        // A fresh service each time: the file is read, as a restore at start-up reads it.
        f.host.profiles().setFolders(f.host.profiles().folders());
        f.handle->getControlsFromIni(Variant(f.path));
    }
}

void GetControlsFromIni_qt(benchmark::State& state) {
    BenchForm f(0);
    const int n = static_cast<int>(state.range(0));
    {
        QSettings s(f.qtPath(), QSettings::IniFormat);
        for (int i = 0; i < n; ++i) {
            s.setValue(QStringLiteral("Form/") + QString::fromStdString(keyOf(i)),
                       QStringLiteral("False"));
        }
    }
    for (auto _ : state) {
        QSettings s(f.qtPath(), QSettings::IniFormat);
        for (int i = 0; i < n; ++i) {
            benchmark::DoNotOptimize(
                s.value(QStringLiteral("Form/") + QString::fromStdString(keyOf(i))));
        }
    }
}

constexpr int kReads = 10000;

void GetIni10000_corvex(benchmark::State& state) {
    BenchForm f(100);
    f.handle->saveControlsToIni(Variant(f.path));
    for (auto _ : state) {
        for (int i = 0; i < kReads; ++i) {
            benchmark::DoNotOptimize(
                f.handle->getIni(u"Form", fromUtf8(keyOf(i % 100)), Variant(u"d"), f.path));
        }
    }
}

void GetIni10000_qt(benchmark::State& state) {
    BenchForm f(0);
    QSettings s(f.qtPath(), QSettings::IniFormat);
    for (int i = 0; i < 100; ++i) {
        s.setValue(QStringLiteral("Form/") + QString::fromStdString(keyOf(i)),
                   QStringLiteral("False"));
    }
    s.sync();
    for (auto _ : state) {
        for (int i = 0; i < kReads; ++i) {
            benchmark::DoNotOptimize(
                s.value(QStringLiteral("Form/") + QString::fromStdString(keyOf(i % 100)),
                        QStringLiteral("d")));
        }
    }
}

}  // namespace

BENCHMARK(SaveControlsToIni_corvex)->Name("SaveControlsToIni/corvex")->Arg(10)->Arg(100)->Arg(1000);
BENCHMARK(SaveControlsToIni_qt)->Name("SaveControlsToIni/qt")->Arg(10)->Arg(100)->Arg(1000);
BENCHMARK(GetControlsFromIni_corvex)
    ->Name("GetControlsFromIni/corvex")
    ->Arg(10)
    ->Arg(100)
    ->Arg(1000);
BENCHMARK(GetControlsFromIni_qt)->Name("GetControlsFromIni/qt")->Arg(10)->Arg(100)->Arg(1000);
BENCHMARK(GetIni10000_corvex)->Name("GetIni10000/corvex");
BENCHMARK(GetIni10000_qt)->Name("GetIni10000/qt");
