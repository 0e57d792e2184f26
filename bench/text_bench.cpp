// Typing into a long text, one character and one Backspace per iteration at the end of
// texts of growing length: the core's text-editing model against Qt's own editors, and
// the Qt host's text box against the bare Qt editor it wraps, both fed the same key
// events. The cost per keystroke should not grow with the text.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextCursor>
#include <memory>
#include <string>

#include "corvex/common/boolean_box.h"
#include "corvex/common/text_editing.h"
#include "corvex/qt/control_host.h"
#include "corvex/qt/host.h"
#include "corvex/qt/widgets.h"

namespace {

// Qt's editors need an application; the benchmarks draw nothing.
void ensureApplication() {
    static int argc = 1;
    static char name[] = "corvex-text-bench";
    static char* argv[] = {name, nullptr};
    // Kept until the process ends and never destroyed: a QApplication destroyed by the
    // static destructors at exit runs after Qt's own statics have gone, and crashes.
    static QApplication* app = nullptr;
    if (app) return;
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    app = new QApplication(argc, argv);
}

// A text of n units, with a line break every 60 units when lines is set.
std::u16string longText(std::int64_t n, bool lines) {
    std::u16string text;
    text.reserve(static_cast<std::size_t>(n));
    while (static_cast<std::int64_t>(text.size()) < n) {
        if (lines && text.size() % 62 == 60) {
            text += u"\r\n";
        } else {
            text += static_cast<char16_t>(u'a' + text.size() % 26);
        }
    }
    text.resize(static_cast<std::size_t>(n));
    return text;
}

void typeCorvex(benchmark::State& state, bool multiLine) {
    corvex::TextEditModel box(multiLine);
    box.setText(longText(state.range(0), multiLine));
    box.setMaxLength(static_cast<std::int32_t>(state.range(0)) + 10);
    box.setSelStart(static_cast<std::int32_t>(box.text().size()));
    for (auto _ : state) {
        benchmark::DoNotOptimize(box.type(u'x'));
        benchmark::DoNotOptimize(box.type(u'\b'));
    }
    state.SetComplexityN(state.range(0));
}

void TypeIntoLongText_corvex(benchmark::State& state) {
    typeCorvex(state, false);
}

void TypeIntoLongText_qt(benchmark::State& state) {
    ensureApplication();
    QLineEdit edit;
    edit.setMaxLength(static_cast<int>(state.range(0)) + 10);
    const std::u16string text = longText(state.range(0), false);
    edit.setText(QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size())));
    edit.end(false);
    for (auto _ : state) {
        edit.insert(QStringLiteral("x"));
        edit.backspace();
    }
    state.SetComplexityN(state.range(0));
}

void TypeIntoLongMemo_corvex(benchmark::State& state) {
    typeCorvex(state, true);
}

void TypeIntoLongMemo_qt(benchmark::State& state) {
    ensureApplication();
    QPlainTextEdit edit;
    QString text;
    for (const char16_t c : longText(state.range(0), true)) {
        if (c != u'\r') text += QChar(c);
    }
    edit.setPlainText(text);
    edit.moveCursor(QTextCursor::End);
    for (auto _ : state) {
        QTextCursor c = edit.textCursor();
        c.insertText(QStringLiteral("x"));
        c.deletePreviousChar();
        edit.setTextCursor(c);
    }
    state.SetComplexityN(state.range(0));
}

// One key typed into a Qt widget as the window system delivers it: press, then release.
void key(QWidget* target, int qtKey, const QString& text) {
    QKeyEvent press(QEvent::KeyPress, qtKey, Qt::NoModifier, text);
    QApplication::sendEvent(target, &press);
    QKeyEvent release(QEvent::KeyRelease, qtKey, Qt::NoModifier, text);
    QApplication::sendEvent(target, &release);
}

QString editorText(std::int64_t n, bool lines) {
    QString text;
    for (const char16_t c : longText(n, lines)) {
        if (c != u'\r') text += QChar(c);
    }
    return text;
}

// Keys typed into the Qt host's text box (or, bare, into the Qt editor alone).
void typeKeys(benchmark::State& state, bool multiLine, bool bare) {
    ensureApplication();
    corvex::qt::QtHost host;
    QWidget window;
    auto* surface =
        new corvex::qt::QtControlHost(corvex::BooleanBox::staticClassInfo(), host, &window);
    surface->initNew();
    corvex::TextBoxSpec design;
    design.name = u"txtInput";
    design.multiLine = multiLine;
    std::unique_ptr<corvex::TextBox> box;
    QWidget* target = nullptr;
    std::unique_ptr<QWidget> plain;
    if (bare) {
        if (multiLine) {
            auto* edit = new QPlainTextEdit(&window);
            edit->setPlainText(editorText(state.range(0), true));
            edit->moveCursor(QTextCursor::End);
            plain.reset(edit);
        } else {
            auto* edit = new QLineEdit(&window);
            edit->setText(editorText(state.range(0), false));
            edit->end(false);
            plain.reset(edit);
        }
        target = plain.get();
    } else {
        box = surface->createTextBox(design);
        box->setText(longText(state.range(0), multiLine));
        box->setSelStart(static_cast<std::int32_t>(state.range(0)));
        target = dynamic_cast<corvex::qt::QtWidget&>(*box).qtWidget();
    }
    for (auto _ : state) {
        key(target, Qt::Key_X, QStringLiteral("x"));
        key(target, Qt::Key_Backspace, QStringLiteral("\b"));
    }
    state.SetComplexityN(state.range(0));
    // The box's Qt widget is deleted later, by the event loop, which a benchmark never
    // runs: delete it now, while its window and surface still exist, not when the
    // application goes at exit.
    box.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void TypeKeysIntoLongText_corvex(benchmark::State& state) {
    typeKeys(state, false, false);
}

void TypeKeysIntoLongText_qt(benchmark::State& state) {
    typeKeys(state, false, true);
}

void TypeKeysIntoLongMemo_corvex(benchmark::State& state) {
    typeKeys(state, true, false);
}

void TypeKeysIntoLongMemo_qt(benchmark::State& state) {
    typeKeys(state, true, true);
}

}  // namespace

BENCHMARK(TypeIntoLongText_corvex)
    ->Name("TypeIntoLongText/corvex")
    ->RangeMultiplier(8)
    ->Range(1 << 10, 1 << 19)
    ->Complexity();
BENCHMARK(TypeIntoLongText_qt)
    ->Name("TypeIntoLongText/qt")
    ->RangeMultiplier(8)
    ->Range(1 << 10, 1 << 19)
    ->Complexity();
BENCHMARK(TypeIntoLongMemo_corvex)
    ->Name("TypeIntoLongMemo/corvex")
    ->RangeMultiplier(8)
    ->Range(1 << 10, 1 << 19)
    ->Complexity();
BENCHMARK(TypeIntoLongMemo_qt)
    ->Name("TypeIntoLongMemo/qt")
    ->RangeMultiplier(8)
    ->Range(1 << 10, 1 << 19)
    ->Complexity();
BENCHMARK(TypeKeysIntoLongText_corvex)
    ->Name("TypeKeysIntoLongText/corvex")
    ->RangeMultiplier(8)
    ->Range(1 << 10, 1 << 16)
    ->Complexity();
BENCHMARK(TypeKeysIntoLongText_qt)
    ->Name("TypeKeysIntoLongText/qt")
    ->RangeMultiplier(8)
    ->Range(1 << 10, 1 << 16)
    ->Complexity();
BENCHMARK(TypeKeysIntoLongMemo_corvex)
    ->Name("TypeKeysIntoLongMemo/corvex")
    ->RangeMultiplier(8)
    ->Range(1 << 10, 1 << 16)
    ->Complexity();
BENCHMARK(TypeKeysIntoLongMemo_qt)
    ->Name("TypeKeysIntoLongMemo/qt")
    ->RangeMultiplier(8)
    ->Range(1 << 10, 1 << 16)
    ->Complexity();
