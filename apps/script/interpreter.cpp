#include "corvex/script/interpreter.h"

#include <fstream>
#include <istream>
#include <ostream>
#include <span>
#include <sstream>

#include "corvex/common/error.h"
#include "corvex/common/text.h"
#include "corvex/headless/form_windows.h"
#include "corvex/headless/list_box.h"
#include "corvex/headless/list_widgets.h"
#include "corvex/headless/page_widgets.h"
#include "corvex/headless/standard_controls.h"
#include "corvex/library/class_table.h"
#include "corvex/library/literals.h"
#include "corvex/library/memory_bag.h"
#include "corvex/posix/atomic_file.h"
#include "corvex/script/describe.h"
#include "corvex/script/peek.h"
#include "corvex/services/property_page.h"

namespace corvex::script {

namespace {

// A line that cannot be parsed: the script stops there.
struct ParseError {
    std::string message;
};

// The number printed for a failure that is no error of the host's own (it cannot come
// from a control working as it should, but the script goes on all the same).
constexpr std::int32_t kInternalError = 51;

bool isBlank(char c) {
    return c == ' ' || c == '\t';
}

char lower(char c) {
    return (c >= 'A' && c <= 'Z') ? static_cast<char>(c + 32) : c;
}

bool isWord(std::string_view text, std::string_view word) {
    if (text.size() != word.size()) return false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (lower(text[i]) != word[i]) return false;
    }
    return true;
}

std::vector<std::string_view> tokenize(std::string_view line) {
    std::vector<std::string_view> tokens;
    std::size_t i = 0;
    for (;;) {
        while (i < line.size() && isBlank(line[i])) ++i;
        if (i == line.size()) return tokens;
        std::size_t len = 0;
        try {
            len = literalTokenLength(line.substr(i));
        } catch (const LiteralError& e) {
            throw ParseError{e.what()};
        }
        tokens.push_back(line.substr(i, len));
        i += len;
    }
}

std::string shown(std::string_view token) {
    std::string out;
    for (char c : token.substr(0, 60)) {
        const auto b = static_cast<unsigned char>(c);
        out += b < 0x20 ? '?' : c;
    }
    if (token.size() > 60) out += "...";
    return out;
}

// A diagnostic quotes at most a short piece of what it read: a message about a line of a
// megabyte is still one short line. The cut keeps whole UTF-8 characters.
std::string clipped(const std::string& message) {
    constexpr std::size_t limit = 200;
    if (message.size() <= limit) return message;
    std::size_t cut = limit;
    while (cut > 0 && (static_cast<unsigned char>(message[cut]) & 0xC0) == 0x80) --cut;
    return message.substr(0, cut) + "...";
}

// A control name as a command gives it: a name that is no literal word, or NAME(I) for
// element I (0 to 32767) of a control array.
ControlName controlName(std::string_view token) {
    std::string_view name = token;
    std::int16_t index = NoIndex;
    const std::size_t open = token.find('(');
    if (open != std::string_view::npos && token.ends_with(')')) {
        name = token.substr(0, open);
        const std::string_view digits = token.substr(open + 1, token.size() - open - 2);
        int value = 0;
        bool ok = !digits.empty() && digits.size() <= 5;
        for (char c : digits) {
            ok = ok && c >= '0' && c <= '9';
            value = value * 10 + (c - '0');
        }
        if (!ok || value > 32767) {
            throw ParseError{"the index of " + shown(token) +
                             " must be a whole number from 0 to 32767"};
        }
        index = static_cast<std::int16_t>(value);
    }
    if (!isName(name)) throw ParseError{"expected a control name, found " + shown(token)};
    if (isLiteralWord(name)) throw ParseError{shown(name) + " is a literal, not a control name"};
    return {fromUtf8(name), index};
}

// NAME.MEMBER
std::pair<ControlName, std::u16string> memberTarget(std::string_view token) {
    const std::size_t dot = token.find('.');
    if (dot == std::string_view::npos || !isName(token.substr(dot + 1))) {
        throw ParseError{"expected NAME.MEMBER, found " + shown(token)};
    }
    return {controlName(token.substr(0, dot)), fromUtf8(token.substr(dot + 1))};
}

std::string errorLine(std::int32_t number, std::u16string_view description) {
    return "error " + std::to_string(number) + " " + quoteString(description);
}

headless::HeadlessWidget* firstVisible(const headless::Site& s) {
    for (headless::HeadlessWidget* w : s.widgetList()) {
        if (w->visible()) return w;
    }
    return nullptr;
}

// The control's first inner text box; null when it has none.
headless::HeadlessWidget* firstTextBox(headless::Site& s) {
    for (headless::HeadlessWidget* w : s.widgetList()) {
        if (dynamic_cast<headless::HeadlessTextBox*>(w)) return w;
    }
    return nullptr;
}

}  // namespace

Interpreter::Interpreter(std::ostream& out, std::ostream& diagnostics)
    : out_(out), diagnostics_(diagnostics), form_(host_) {
    host_.setObserver(this);
    host_.setFileSystem(&files_);
    // INI files named the Windows way lie where the drive map puts them.
    host_.profiles().setWindowsNameMapper(
        [this](std::u16string_view name) { return files_.nativePathFor(name); });
    host_.fileDialogs().onShown = [this](const headless::ShownFileDialog& d) {
        print("filedialog " + std::string(d.kind == FileDialogKind::Save ? "save " : "open ") +
              std::to_string(static_cast<std::int32_t>(d.flags)) + " " +
              quoteString(fromUtf8(d.filter)) + " " + std::to_string(d.filterIndex) + " " +
              quoteString(fromUtf8(d.file)) + " " + std::to_string(d.size) + " " +
              quoteString(fromUtf8(d.initDir)) + " " + quoteString(fromUtf8(d.title)) + " " +
              quoteString(fromUtf8(d.defExt)));
    };
    host_.formWindows().onShown = [this](headless::HeadlessFormWindow& w) {
        print("window " + toUtf8(w.name()) + " " + std::to_string(w.serial()));
    };
}

Interpreter::~Interpreter() {
    host_.setObserver(nullptr);
}

std::u16string Interpreter::dropped(const std::u16string& path) const {
    // A Windows name (drive letter and colon, or a leading backslash) arrives as it is; a
    // native path, relative ones against the current folder, arrives as the Windows name
    // the drive map gives it, or unchanged when no drive holds it.
    const bool windows =
        (path.size() >= 2 && path[1] == u':') || (!path.empty() && path[0] == u'\\');
    if (windows || path.empty()) return path;
    return files_.driveMap().toWindows(toUtf8(path)).value_or(path);
}

void Interpreter::print(const std::string& line) {
    out_ << line << '\n';
}

template <class F>
void Interpreter::execute(F&& action) {
    try {
        action();
    } catch (const Error& e) {
        print(errorLine(e.number(), e.description()));
    } catch (const std::exception& e) {
        print(errorLine(kInternalError, u"Internal error: " + fromUtf8(e.what())));
    }
}

headless::Site* Interpreter::findSite(const ControlName& name) const {
    return form_.find(name.name, name.index);
}

headless::Site& Interpreter::site(const ControlName& name) const {
    headless::Site* s = findSite(name);
    if (!s) {
        // An array named without the element it lacks is the host's missing-element error.
        if (name.index != NoIndex && form_.model().isArray(name.name)) {
            throw Error(err::ControlArrayElementMissing);
        }
        throw Error(err::ObjectRequired);
    }
    return *s;
}

Interpreter::Operand Interpreter::operand(std::string_view token) const {
    Operand op;
    if (isName(token) && !isLiteralWord(token)) {
        op.isName = true;
        op.name = fromUtf8(token);
        return op;
    }
    try {
        op.value = parseLiteral(token);
    } catch (const LiteralError& e) {
        throw ParseError{e.what()};
    }
    return op;
}

Variant Interpreter::evaluate(const Operand& op) const {
    if (!op.isName) return op.value;
    return Variant(ObjectRef(site({op.name, NoIndex}).controlRef()));
}

Interpreter::Status Interpreter::feedLine(std::string_view line) {
    if (stopped_) return Status::ParseError;
    ++lineNumber_;
    // A byte-order mark some editors put first carries no meaning.
    if (lineNumber_ == 1 && line.starts_with("\xEF\xBB\xBF")) line.remove_prefix(3);
    if (line.ends_with('\r')) line.remove_suffix(1);
    std::size_t i = 0;
    while (i < line.size() && isBlank(line[i])) ++i;
    if (i == line.size() || line[i] == '#') return Status::Ok;
    try {
        parseAndRun(line);
    } catch (const ParseError& e) {
        diagnostics_ << "line " << lineNumber_ << ": " << clipped(e.message) << '\n';
        stopped_ = true;
        return Status::ParseError;
    }
    return Status::Ok;
}

Interpreter::Status Interpreter::finish() {
    if (stopped_) return Status::ParseError;
    if (pending_) {
        diagnostics_ << "line " << pending_->line << ": "
                     << clipped("load " + toUtf8(pending_->className) + " " +
                                toUtf8(pending_->name.text()) + " has no end line")
                     << '\n';
        stopped_ = true;
        return Status::ParseError;
    }
    return Status::Ok;
}

int Interpreter::run(std::string_view text) {
    std::size_t pos = 0;
    while (pos < text.size()) {
        std::size_t end = text.find('\n', pos);
        if (end == std::string_view::npos) end = text.size();
        if (feedLine(text.substr(pos, end - pos)) != Status::Ok) return ExitParseError;
        pos = end + 1;
    }
    return finish() == Status::Ok ? ExitOk : ExitParseError;
}

int Interpreter::run(std::istream& in) {
    // Output that cannot be written is a failure, not a run that printed nothing.
    const auto written = [&] {
        out_.flush();
        if (out_) return true;
        diagnostics_ << "corvex-script: cannot write the output\n";
        return false;
    };
    std::string line;
    while (std::getline(in, line)) {
        const Status s = feedLine(line);
        if (!written()) return ExitIoError;
        if (s != Status::Ok) return ExitParseError;
    }
    if (in.bad()) {
        diagnostics_ << "corvex-script: cannot read the script\n";
        return ExitIoError;
    }
    const Status s = finish();
    if (!written()) return ExitIoError;
    return s == Status::Ok ? ExitOk : ExitParseError;
}

void Interpreter::parseLoadLine(const std::vector<std::string_view>& tokens) {
    if (tokens.size() == 1 && isWord(tokens[0], "end")) {
        const PendingLoad load = std::move(*pending_);
        pending_.reset();
        runLoad(load);
        return;
    }
    if (tokens.size() != 3 || tokens[1] != "=" || !isName(tokens[0])) {
        throw ParseError{"expected PROP = LITERAL or end inside load " +
                         toUtf8(pending_->name.text())};
    }
    Operand value = operand(tokens[2]);
    const std::u16string name = fromUtf8(tokens[0]);
    // A second line for a name replaces the first in place, as a bag write does.
    const auto [at, fresh] = pending_->positions.emplace(foldName(name), pending_->entries.size());
    if (!fresh) {
        pending_->entries[at->second].second = std::move(value);
        return;
    }
    pending_->entries.emplace_back(name, std::move(value));
}

// --- commands ------------------------------------------------------------------------

// One command of the protocol: its word, its usage, how many tokens it takes (the word
// included) and what it does. The handlers parse their tokens first (a ParseError stops
// the script) and then run inside execute (a runtime error prints an error line).
struct Interpreter::Command {
    using Tokens = std::vector<std::string_view>;
    std::string_view word;
    std::string_view usage;
    std::size_t least;
    std::size_t most;
    void (*handler)(Interpreter&, const Tokens&, const Command&);
};

struct Interpreter::Commands {
    using Tokens = Command::Tokens;

    static void locale(Interpreter& in, const Tokens& t, const Command&) {
        const Operand id = in.operand(t[1]);
        in.execute([&] { in.host_.setLocaleId(in.evaluate(id).toLong()); });
    }

    static void userMode(Interpreter& in, const Tokens& t, const Command&) {
        const Operand mode = in.operand(t[1]);
        in.execute([&] { in.host_.setUserMode(static_cast<bool>(in.evaluate(mode).toBoolean())); });
    }

    static void place(Interpreter& in, const Tokens& t, const Command& c) {
        if (!isName(t[1])) throw ParseError{"expected a class name, found " + shown(t[1])};
        const std::u16string className = fromUtf8(t[1]);
        const ControlName name = controlName(t[2]);
        if (c.word == "load") {
            PendingLoad load;
            load.className = className;
            load.name = name;
            load.line = in.lineNumber_;
            in.pending_ = std::move(load);
            return;
        }
        in.execute([&] { in.form_.add(publicClass(className), name.name, name.index); });
    }

    static void end(Interpreter&, const Tokens&, const Command&) {
        throw ParseError{"end without load"};
    }

    static void unload(Interpreter& in, const Tokens& t, const Command&) {
        const ControlName name = controlName(t[1]);
        in.execute([&] { in.form_.remove(name.name, name.index); });
    }

    static void save(Interpreter& in, const Tokens& t, const Command&) {
        const ControlName name = controlName(t[1]);
        in.execute([&] {
            headless::Site& s = in.site(name);
            MemoryBag bag;
            s.control().writeProperties(bag);
            for (const auto& [prop, value] : bag.entries()) {
                in.print("bag " + toUtf8(s.displayName()) + "." + toUtf8(prop) + " = " +
                         typeWord(value.type()) + " " + formatValue(value));
            }
        });
    }

    static void getOrCall(Interpreter& in, const Tokens& t, const Command& c) {
        const bool isGet = c.word == "get";
        if (isGet && t.size() == 2 && isWord(t[1].substr(0, t[1].find('.')), "form")) {
            const std::u16string member = memberTarget(t[1]).second;
            in.execute([&] {
                const Variant v = formProperty(in, member);
                in.print("= " + typeWord(v.type()) + " " + formatValue(v));
            });
            return;
        }
        const auto target = memberTarget(t[1]);
        const ControlName& name = target.first;
        const std::u16string& member = target.second;
        std::vector<Operand> args;
        for (std::size_t i = 2; i < t.size(); ++i) args.push_back(in.operand(t[i]));
        in.execute([&] {
            Object& object = in.site(name).control();
            object.checkAvailable();
            const MemberInfo* m = object.classInfo().member(member);
            // A get reads a property: a method is called only by call, never as a side
            // effect of reading.
            if (isGet && m && m->isMethod) {
                throw Error(err::MemberNotFound, member + u" is a method: use call, not get");
            }
            std::vector<Variant> values;
            for (const Operand& a : args) values.push_back(in.evaluate(a));
            const Variant result =
                invoke(object, member, isGet ? CallKind::Get : CallKind::Method, values);
            // A call prints only what a method returns: nothing for one that returns nothing.
            if (!isGet && result.isEmpty() && (!m || m->type == VarType::Empty)) return;
            in.print("= " + typeWord(result.type()) + " " + formatValue(result));
        });
    }

    static void set(Interpreter& in, const Tokens& t, const Command& c) {
        if (t[t.size() - 2] != "=") throw ParseError{"usage: " + std::string(c.usage)};
        const auto target = memberTarget(t[1]);
        const ControlName& name = target.first;
        const std::u16string& member = target.second;
        std::vector<Operand> args;
        for (std::size_t i = 2; i + 2 < t.size(); ++i) args.push_back(in.operand(t[i]));
        const Operand value = in.operand(t.back());
        in.execute([&] {
            Object& object = in.site(name).control();
            std::vector<Variant> values;
            for (const Operand& a : args) values.push_back(in.evaluate(a));
            const Variant v = in.evaluate(value);
            invoke(object, member, v.type() == VarType::Object ? CallKind::Set : CallKind::Let,
                   values, v);
        });
    }

    static void type(Interpreter& in, const Tokens& t, const Command&) {
        const WidgetTarget target = widgetTarget(in, t[1]);
        const Operand text = in.operand(t[2]);
        in.execute([&] {
            headless::Site& s = in.site(target.control);
            const std::u16string chars = in.evaluate(text).toString();
            headless::HeadlessWidget* w = target.widget ? &innerWidget(s, target) : keyTarget(s);
            for (char16_t ch : chars) w->type(ch);
        });
    }

    static void key(Interpreter& in, const Tokens& t, const Command&) {
        const WidgetTarget target = widgetTarget(in, t[1]);
        const Operand code = in.operand(t[2]);
        const std::optional<Operand> shift =
            t.size() > 3 ? std::optional(in.operand(t[3])) : std::nullopt;
        in.execute([&] {
            headless::Site& s = in.site(target.control);
            const std::int16_t k = in.evaluate(code).toInteger();
            const std::int16_t sh = shift ? in.evaluate(*shift).toInteger() : std::int16_t{0};
            headless::HeadlessWidget* w = target.widget ? &innerWidget(s, target) : keyTarget(s);
            w->pressKey(k, sh);
        });
    }

    static void caret(Interpreter& in, const Tokens& t, const Command&) {
        const ControlName name = controlName(t[1]);
        const Operand start = in.operand(t[2]);
        const std::optional<Operand> length =
            t.size() > 3 ? std::optional(in.operand(t[3])) : std::nullopt;
        in.execute([&] {
            headless::Site& s = in.site(name);
            const std::int32_t st = in.evaluate(start).toLong();
            const std::optional<std::int32_t> len =
                length ? std::optional(in.evaluate(*length).toLong()) : std::nullopt;
            auto* box = dynamic_cast<headless::HeadlessTextBox*>(s.keyTarget());
            if (!box) {
                for (headless::HeadlessWidget* w : s.widgetList()) {
                    box = dynamic_cast<headless::HeadlessTextBox*>(w);
                    if (box) break;
                }
            }
            if (!box) {
                throw Error(err::MemberNotFound, s.displayName() + u" has no inner text box");
            }
            box->setSelStart(st);
            if (len) box->setSelLength(*len);
        });
    }

    static void drop(Interpreter& in, const Tokens& t, const Command&) {
        const ControlName name = controlName(t[1]);
        std::vector<Operand> paths;
        for (std::size_t i = 2; i < t.size(); ++i) paths.push_back(in.operand(t[i]));
        in.execute([&] {
            headless::Site& s = in.site(name);
            std::vector<std::u16string> files;
            for (const Operand& p : paths) files.push_back(in.dropped(in.evaluate(p).toString()));
            headless::HeadlessWidget* box = firstTextBox(s);
            if (!box) throw Error(err::MemberNotFound, s.displayName() + u" has no inner text box");
            box->dropFiles(std::move(files));
        });
    }

    static void focus(Interpreter& in, const Tokens& t, const Command& c) {
        const bool give = c.word == "focus";
        const ControlName name = controlName(t[1]);
        in.execute([&] {
            headless::Site& s = in.site(name);
            headless::HeadlessWidget* focused = in.form_.focused();
            const bool inside = focused && &focused->site() == &s;
            if (give) {
                if (inside) return;
                // The focus goes where a user's Tab would put it: the first widget that takes it.
                for (headless::HeadlessWidget* w : s.widgetList()) {
                    if (w->visible() && w->enabled()) {
                        in.form_.focus(w);
                        return;
                    }
                }
            } else if (inside) {
                in.form_.focus(nullptr);
            }
        });
    }

    // NAME, NAME.WIDGET or NAME.WIDGET(I): a control and, optionally, one of its widgets.
    struct WidgetTarget {
        ControlName control;
        std::optional<std::u16string> widget;
        std::int16_t index = -1;
    };

    static WidgetTarget widgetTarget(const Interpreter& in, std::string_view target) {
        const std::size_t dot = target.find('.');
        WidgetTarget out{controlName(target.substr(0, dot)), std::nullopt, -1};
        if (dot == std::string_view::npos) return out;
        std::string_view rest = target.substr(dot + 1);
        const std::size_t paren = rest.find('(');
        if (paren != std::string_view::npos) {
            if (!rest.ends_with(')'))
                throw ParseError{"expected NAME.WIDGET(I), found " + shown(target)};
            const Operand i = in.operand(rest.substr(paren + 1, rest.size() - paren - 2));
            if (i.isName || i.value.type() != VarType::Integer || i.value.asInteger() < 0) {
                throw ParseError{"the element index of " + shown(target) +
                                 " must be a whole number from 0 to 32767"};
            }
            out.index = i.value.asInteger();
            rest = rest.substr(0, paren);
        }
        if (!isName(rest)) throw ParseError{"expected NAME.WIDGET, found " + shown(target)};
        out.widget = fromUtf8(rest);
        return out;
    }

    // The inner widget a target names: 340 for a missing element, 438 for no such widget.
    static headless::HeadlessWidget& innerWidget(headless::Site& s, const WidgetTarget& target) {
        bool nameSeen = false;
        for (headless::HeadlessWidget* w : s.widgetList()) {
            if (!equalsIgnoringCase(w->name(), *target.widget)) continue;
            nameSeen = true;
            if (w->index() == target.index) return *w;
        }
        if (nameSeen) throw Error(err::ControlArrayElementMissing);
        throw Error(err::MemberNotFound,
                    s.displayName() + u" has no inner widget named " + *target.widget);
    }

    static void click(Interpreter& in, const Tokens& t, const Command&) {
        const WidgetTarget target = widgetTarget(in, t[1]);
        in.execute([&] {
            headless::Site& s = in.site(target.control);
            if (!target.widget) {
                if (headless::HeadlessWidget* w = firstVisible(s)) w->click();
                return;
            }
            innerWidget(s, target).click();
        });
    }

    static void pick(Interpreter& in, const Tokens& t, const Command& c) {
        const WidgetTarget target = widgetTarget(in, t[1]);
        if (!target.widget) throw ParseError{"usage: " + std::string(c.usage)};
        const Operand entry = in.operand(t[2]);
        in.execute([&] {
            headless::Site& s = in.site(target.control);
            headless::HeadlessWidget& w = innerWidget(s, target);
            const std::int32_t index = in.evaluate(entry).toLong();
            if (auto* list = dynamic_cast<headless::HeadlessItemList*>(&w))
                return list->pick(index);
            if (auto* combo = dynamic_cast<headless::HeadlessComboBox*>(&w)) {
                return combo->pick(index);
            }
            throw Error(err::MemberNotFound, *target.widget + u" is not a list");
        });
    }

    static void choose(Interpreter& in, const Tokens& t, const Command& c) {
        const WidgetTarget target = widgetTarget(in, t[1]);
        if (!target.widget) throw ParseError{"usage: " + std::string(c.usage)};
        const Operand item = in.operand(t[2]);
        const std::optional<Operand> shift =
            t.size() > 3 ? std::optional<Operand>(in.operand(t[3])) : std::nullopt;
        in.execute([&] {
            headless::Site& s = in.site(target.control);
            auto* list = dynamic_cast<headless::HeadlessListBox*>(&innerWidget(s, target));
            if (!list) throw Error(err::MemberNotFound, *target.widget + u" is not a list box");
            list->clickItem(in.evaluate(item).toLong(),
                            shift ? in.evaluate(*shift).toInteger() : std::int16_t{0});
        });
    }

    static PropertyPage& page(headless::Site& s) {
        auto* p = dynamic_cast<PropertyPage*>(&s.control());
        if (!p) throw Error(err::MemberNotFound, s.displayName() + u" is not a property page");
        return *p;
    }

    static void select(Interpreter& in, const Tokens& t, const Command&) {
        const ControlName pageName = controlName(t[1]);
        std::vector<ControlName> names;
        for (std::size_t i = 2; i < t.size(); ++i) names.push_back(controlName(t[i]));
        in.execute([&] {
            PropertyPage& p = page(in.site(pageName));
            std::vector<ObjectRef> selected;
            for (const ControlName& n : names) selected.push_back(in.site(n).controlRef());
            p.setSelectedControls(std::move(selected));
        });
    }

    static void apply(Interpreter& in, const Tokens& t, const Command&) {
        const ControlName pageName = controlName(t[1]);
        in.execute([&] { page(in.site(pageName)).apply(); });
    }

    static void formGeometry(Interpreter& in, const Tokens& t, const Command&) {
        std::vector<Operand> values;
        for (std::size_t i = 1; i < t.size(); ++i) values.push_back(in.operand(t[i]));
        in.execute([&] {
            float v[4];
            for (std::size_t i = 0; i < 4; ++i) v[i] = in.evaluate(values[i]).toSingle();
            in.form_.move(v[0], v[1], v[2], v[3]);
        });
    }

    static void screen(Interpreter& in, const Tokens& t, const Command&) {
        const Operand width = in.operand(t[1]);
        const Operand height = in.operand(t[2]);
        in.execute([&] {
            const float w = in.evaluate(width).toSingle();
            in.host_.setScreenSize(w, in.evaluate(height).toSingle());
        });
    }

    // get form.Left, Top, Width, Height or TopMost: the form's geometry as controls see it.
    static Variant formProperty(const Interpreter& in, const std::u16string& member) {
        const Form& f = in.form_;
        if (equalsIgnoringCase(member, u"Left")) return Variant(f.left());
        if (equalsIgnoringCase(member, u"Top")) return Variant(f.top());
        if (equalsIgnoringCase(member, u"Width")) return Variant(f.width());
        if (equalsIgnoringCase(member, u"Height")) return Variant(f.height());
        if (equalsIgnoringCase(member, u"TopMost")) return Variant(Boolean(f.topMost()));
        throw Error(err::MemberNotFound);
    }

    // peek NAME.PROP | NAME.WIDGET.PROP | NAME.WIDGET(I).PROP: the host's own models.
    static void peek(Interpreter& in, const Tokens& t, const Command&) {
        const std::string_view target = t[1];
        const std::size_t dot = target.find('.');
        const std::size_t last = target.rfind('.');
        if (dot == std::string_view::npos || !isName(target.substr(last + 1))) {
            throw ParseError{"expected NAME.PROP or NAME.WIDGET[(I)].PROP, found " + shown(target)};
        }
        const ControlName name = controlName(target.substr(0, dot));
        const std::u16string property = fromUtf8(target.substr(last + 1));
        std::optional<std::u16string> widget;
        std::int16_t index = -1;
        if (last != dot) {
            const ControlName w = controlName(target.substr(dot + 1, last - dot - 1));
            widget = w.name;
            index = w.index == NoIndex ? std::int16_t{-1} : w.index;
        }
        in.execute([&] {
            headless::HeadlessFormWindow* f =
                in.findSite(name) ? nullptr : in.host_.formWindows().find(name.name);
            const headless::Site& s = f ? f->site() : in.site(name);
            if (!f) s.control().checkAvailable();
            const Variant v =
                widget ? peekWidget(s, *widget, index, property) : peekSurface(s, property);
            in.print("= " + typeWord(v.type()) + " " + formatValue(v));
        });
    }

    static void resize(Interpreter& in, const Tokens& t, const Command&) {
        const ControlName name = controlName(t[1]);
        const Operand width = in.operand(t[2]);
        const Operand height = in.operand(t[3]);
        in.execute([&] {
            const float w = in.evaluate(width).toSingle();
            const float h = in.evaluate(height).toSingle();
            // A form of the library's own (frmFILEDLG) when no control has the name.
            if (!in.findSite(name)) {
                if (headless::HeadlessFormWindow* f = in.host_.formWindows().find(name.name)) {
                    return f->resize(w, h);
                }
            }
            in.site(name).resizeTo(w, h);
        });
    }

    static void closeForm(Interpreter& in, const Tokens& t, const Command&) {
        const ControlName name = controlName(t[1]);
        in.execute([&] {
            headless::HeadlessFormWindow* f = in.host_.formWindows().find(name.name);
            if (!f) throw Error(err::ObjectRequired, name.name + u" is no open form");
            f->close();
        });
    }

    // dialog ok "TEXT" [INDEX] | dialog cancel | dialog fail CODE: the next file dialog.
    static void dialog(Interpreter& in, const Tokens& t, const Command& c) {
        using Kind = headless::ScriptedDialogAnswer::Kind;
        std::vector<Operand> args;
        for (std::size_t i = 2; i < t.size(); ++i) args.push_back(in.operand(t[i]));
        Kind kind;
        if (isWord(t[1], "ok") && (args.size() == 1 || args.size() == 2)) {
            kind = Kind::Ok;
        } else if (isWord(t[1], "cancel") && args.empty()) {
            kind = Kind::Cancel;
        } else if (isWord(t[1], "fail") && args.size() == 1) {
            kind = Kind::Fail;
        } else {
            throw ParseError{"usage: " + std::string(c.usage)};
        }
        in.execute([&] {
            headless::ScriptedDialogAnswer a;
            a.kind = kind;
            if (kind == Kind::Ok) {
                a.text = toUtf8(in.evaluate(args[0]).toString());
                if (args.size() == 2) {
                    a.filterIndex = static_cast<std::uint32_t>(in.evaluate(args[1]).toLong());
                }
            } else if (kind == Kind::Fail) {
                a.code = static_cast<std::uint32_t>(in.evaluate(args[0]).toLong());
            }
            in.host_.fileDialogs().queue(std::move(a));
        });
    }

    static void answer(Interpreter& in, const Tokens& t, const Command&) {
        const Operand answer = in.operand(t[1]);
        in.execute([&] { in.host_.queueAnswer(in.evaluate(answer).toLong()); });
    }

    static void clipboard(Interpreter& in, const Tokens& t, const Command&) {
        const Operand text = in.operand(t[1]);
        in.execute([&] { in.host_.setText(in.evaluate(text).toString()); });
    }

    // Shows an INI file line by line, or replaces its bytes with a text (a file written by
    // hand); the name is resolved as the settings control resolves it.
    static void ini(Interpreter& in, const Tokens& t, const Command&) {
        const Operand file = in.operand(t[1]);
        std::optional<Operand> text;
        if (t.size() == 3) text = in.operand(t[2]);
        in.execute([&] {
            const auto path = in.host_.profiles().iniPath(in.evaluate(file).toString());
            if (!path) throw Error(err::InvalidProcedureCall, u"the name maps to no file");
            if (text) {
                posix::writeFileAtomically(*path, toUtf8(in.evaluate(*text).toString()));
                return;
            }
            std::ifstream inFile(*path, std::ios::binary);
            if (!inFile) return in.print("ini (none)");
            for (std::string line; std::getline(inFile, line);) {
                in.print("ini " + quoteString(fromUtf8(line)));
            }
        });
    }

    // The library's self-description: classes, members, events, enumerations, help.
    static void describe(Interpreter& in, const Tokens& t, const Command& c) {
        std::u16string name;
        std::u16string member;
        if (c.word == "help") {
            auto target = memberTarget(t[1]);
            name = std::move(target.first.name);
            member = std::move(target.second);
        } else if (c.word != "classes") {
            if (!isName(t[1])) throw ParseError{"expected a name, found " + shown(t[1])};
            name = fromUtf8(t[1]);
        }
        in.execute([&] {
            std::vector<std::string> lines;
            if (c.word == "classes") {
                lines = script::describeClasses();
            } else if (c.word == "help") {
                lines.push_back(script::describeHelp(name, member));
            } else if (c.word == "members") {
                lines = script::describeMembers(name);
            } else if (c.word == "events") {
                lines = script::describeEvents(name);
            } else if (c.word == "typeinfo") {
                lines = script::describeTypeInfo(name);
            } else {
                lines = script::describeEnumeration(name);
            }
            for (const std::string& line : lines) in.print(line);
        });
    }

    static const ClassInfo& publicClass(const std::u16string& className) {
        const ClassInfo* cls = findClass(className);
        // The host's own standard controls sit on a form beside the library's.
        if (!cls) cls = headless::findStandardClass(className);
        if (!cls) throw Error(err::MemberNotFound, className + u" is not a public class");
        return *cls;
    }

    static headless::HeadlessWidget* keyTarget(headless::Site& s) {
        headless::HeadlessWidget* w = s.keyTarget();
        if (!w) {
            throw Error(err::MemberNotFound,
                        s.displayName() + u" has no inner widget that takes keys");
        }
        return w;
    }

    static std::span<const Command> table() {
        constexpr std::size_t any = static_cast<std::size_t>(-1);
        // clang-format off
        static const Command commands[] = {
            {"locale",    "locale N",                                   2, 2,    &Commands::locale},
            {"usermode",  "usermode True|False",                        2, 2,    &Commands::userMode},
            {"new",       "new CLASS NAME",                             3, 3,    &Commands::place},
            {"load",      "load CLASS NAME",                            3, 3,    &Commands::place},
            {"end",       "end",                                        1, any, &Commands::end},
            {"unload",    "unload NAME",                                2, 2,    &Commands::unload},
            {"save",      "save NAME",                                  2, 2,    &Commands::save},
            {"get",       "get NAME.MEMBER [ARG ...]",                  2, any, &Commands::getOrCall},
            {"call",      "call NAME.METHOD [ARG ...]",                 2, any, &Commands::getOrCall},
            {"set",       "set NAME.MEMBER [ARG ...] = LITERAL",        4, any, &Commands::set},
            {"type",      "type NAME[.WIDGET] \"TEXT\"",                3, 3,    &Commands::type},
            {"key",       "key NAME[.WIDGET] CODE [SHIFT]",             3, 4,    &Commands::key},
            {"caret",     "caret NAME START [LENGTH]",                  3, 4,    &Commands::caret},
            {"focus",     "focus NAME",                                 2, 2,    &Commands::focus},
            {"blur",      "blur NAME",                                  2, 2,    &Commands::focus},
            {"click",     "click NAME | NAME.WIDGET | NAME.WIDGET(I)",  2, 2,    &Commands::click},
            {"resize",    "resize NAME WIDTH HEIGHT",                   4, 4,    &Commands::resize},
            {"answer",    "answer N",                                   2, 2,    &Commands::answer},
            {"clipboard", "clipboard \"TEXT\"",                         2, 2,    &Commands::clipboard},
            {"ini",       "ini FILE [\"TEXT\"]",                          2, 3,    &Commands::ini},
            {"pick",      "pick NAME.WIDGET INDEX",                     3, 3,    &Commands::pick},
            {"select",    "select PAGE [NAME ...]",                     2, any, &Commands::select},
            {"apply",     "apply PAGE",                                 2, 2,    &Commands::apply},
            {"form",      "form LEFT TOP WIDTH HEIGHT",                 5, 5,    &Commands::formGeometry},
            {"screen",    "screen WIDTH HEIGHT",                        3, 3,    &Commands::screen},
            {"drop",      "drop NAME \"PATH\" ...",                     3, any, &Commands::drop},
            {"peek",      "peek NAME.PROP | NAME.WIDGET[(I)].PROP",     2, 2,    &Commands::peek},
            {"choose",    "choose NAME.WIDGET ITEM [SHIFT]",            3, 4,    &Commands::choose},
            {"dialog",    "dialog ok \"TEXT\" [INDEX] | dialog cancel | dialog fail CODE", 2, 4, &Commands::dialog},
            {"close",     "close NAME",                                 2, 2,    &Commands::closeForm},
            {"classes",   "classes",                                    1, 1,    &Commands::describe},
            {"members",   "members CLASS",                              2, 2,    &Commands::describe},
            {"events",    "events CLASS",                               2, 2,    &Commands::describe},
            {"enum",      "enum NAME",                                  2, 2,    &Commands::describe},
            {"help",      "help CLASS.MEMBER",                          2, 2,    &Commands::describe},
            {"typeinfo",  "typeinfo CLASS",                             2, 2,    &Commands::describe},
        };
        // clang-format on
        return commands;
    }
};

void Interpreter::runLoad(const PendingLoad& load) {
    execute([&] {
        std::vector<MemoryBag::Entry> entries;
        for (const auto& [name, op] : load.entries) entries.emplace_back(name, evaluate(op));
        MemoryBag bag(std::move(entries));
        form_.load(Commands::publicClass(load.className), load.name.name, bag, load.name.index);
    });
}

void Interpreter::parseAndRun(std::string_view line) {
    const std::vector<std::string_view> t = tokenize(line);
    if (pending_) {
        parseLoadLine(t);
        return;
    }
    for (const Command& c : Commands::table()) {
        if (!isWord(t[0], c.word)) continue;
        if (t.size() < c.least || t.size() > c.most) {
            throw ParseError{"usage: " + std::string(c.usage)};
        }
        c.handler(*this, t, c);
        return;
    }
    throw ParseError{"unknown command " + shown(t[0])};
}

void Interpreter::messageBoxShown(const MessageBoxRequest& request) {
    print("msgbox " + std::to_string(request.style) + " " + quoteString(request.title) + " " +
          quoteString(request.text));
}

void Interpreter::eventRaised(headless::Site& site, const EventInfo& event,
                              std::span<const Variant> args) {
    std::string line = "event " + toUtf8(site.displayName()) + "." + toUtf8(event.name) + "(";
    for (std::size_t i = 0; i < args.size(); ++i) {
        if (i > 0) line += ", ";
        line += formatValue(args[i]);
    }
    print(line + ")");
}

void Interpreter::propertyChanged(headless::Site& site, std::u16string_view name) {
    print("changed " + toUtf8(site.displayName()) + "." + toUtf8(name));
}

void Interpreter::focusTaken(headless::Site& site) {
    print("focus " + toUtf8(site.displayName()));
}

ScriptResult runScript(std::string_view text) {
    std::ostringstream out;
    std::ostringstream diagnostics;
    ScriptResult result;
    {
        Interpreter interpreter(out, diagnostics);
        result.status = interpreter.run(text);
    }
    result.output = out.str();
    result.diagnostics = diagnostics.str();
    return result;
}

}  // namespace corvex::script
