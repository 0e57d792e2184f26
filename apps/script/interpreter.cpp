#include "corvex/script/interpreter.h"

#include <istream>
#include <ostream>
#include <sstream>

#include "corvex/common/error.h"
#include "corvex/common/text.h"
#include "corvex/library/class_table.h"
#include "corvex/library/literals.h"
#include "corvex/library/memory_bag.h"

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

// A control name as a command gives it: a name that is no literal word.
std::u16string controlName(std::string_view token) {
    if (!isName(token)) throw ParseError{"expected a control name, found " + shown(token)};
    if (isLiteralWord(token)) throw ParseError{shown(token) + " is a literal, not a control name"};
    return fromUtf8(token);
}

// NAME.MEMBER
std::pair<std::u16string, std::u16string> memberTarget(std::string_view token) {
    const std::size_t dot = token.find('.');
    if (dot == std::string_view::npos || !isName(token.substr(dot + 1))) {
        throw ParseError{"expected NAME.MEMBER, found " + shown(token)};
    }
    return {controlName(token.substr(0, dot)), fromUtf8(token.substr(dot + 1))};
}

void expectCount(const std::vector<std::string_view>& tokens, std::size_t least, std::size_t most,
                 const char* usage) {
    if (tokens.size() < least || tokens.size() > most) {
        throw ParseError{std::string("usage: ") + usage};
    }
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

}  // namespace

Interpreter::Interpreter(std::ostream& out, std::ostream& diagnostics)
    : out_(out), diagnostics_(diagnostics), form_(host_) {
    host_.setObserver(this);
}

Interpreter::~Interpreter() {
    host_.setObserver(nullptr);
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

headless::Site* Interpreter::findSite(std::u16string_view name) const {
    for (headless::Site* s : form_.sites()) {
        if (equalsIgnoringCase(s->name(), name)) return s;
    }
    return nullptr;
}

headless::Site& Interpreter::site(std::u16string_view name) const {
    headless::Site* s = findSite(name);
    if (!s) throw Error(err::ObjectRequired);
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
    return Variant(ObjectRef(site(op.name).controlRef()));
}

Interpreter::Status Interpreter::feedLine(std::string_view line) {
    if (stopped_) return Status::ParseError;
    ++lineNumber_;
    if (line.ends_with('\r')) line.remove_suffix(1);
    std::size_t i = 0;
    while (i < line.size() && isBlank(line[i])) ++i;
    if (i == line.size() || line[i] == '#') return Status::Ok;
    try {
        parseAndRun(line);
    } catch (const ParseError& e) {
        diagnostics_ << "line " << lineNumber_ << ": " << e.message << '\n';
        stopped_ = true;
        return Status::ParseError;
    }
    return Status::Ok;
}

Interpreter::Status Interpreter::finish() {
    if (stopped_) return Status::ParseError;
    if (pending_) {
        diagnostics_ << "line " << pending_->line << ": load " << toUtf8(pending_->className) << " "
                     << toUtf8(pending_->name) << " has no end line\n";
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
    std::string line;
    while (std::getline(in, line)) {
        const Status s = feedLine(line);
        out_.flush();
        if (s != Status::Ok) return ExitParseError;
    }
    return finish() == Status::Ok ? ExitOk : ExitParseError;
}

void Interpreter::parseLoadLine(const std::vector<std::string_view>& tokens) {
    if (tokens.size() == 1 && isWord(tokens[0], "end")) {
        const PendingLoad load = std::move(*pending_);
        pending_.reset();
        runLoad(load);
        return;
    }
    if (tokens.size() != 3 || tokens[1] != "=" || !isName(tokens[0])) {
        throw ParseError{"expected PROP = LITERAL or end inside load " + toUtf8(pending_->name)};
    }
    Operand value = operand(tokens[2]);
    const std::u16string name = fromUtf8(tokens[0]);
    // A second line for a name replaces the first in place, as a bag write does.
    for (auto& e : pending_->entries) {
        if (equalsIgnoringCase(e.first, name)) {
            e.second = std::move(value);
            return;
        }
    }
    pending_->entries.emplace_back(name, std::move(value));
}

void Interpreter::runLoad(const PendingLoad& load) {
    execute([&] {
        std::vector<MemoryBag::Entry> entries;
        for (const auto& [name, op] : load.entries) entries.emplace_back(name, evaluate(op));
        const ClassInfo* cls = findClass(load.className);
        if (!cls) throw Error(err::MemberNotFound, load.className + u" is not a public class");
        if (findSite(load.name)) {
            throw Error(err::WrongArguments,
                        u"A control named " + load.name + u" is already on the form");
        }
        MemoryBag bag(std::move(entries));
        form_.load(*cls, load.name, bag);
    });
}

void Interpreter::parseAndRun(std::string_view line) {
    const std::vector<std::string_view> t = tokenize(line);
    if (pending_) {
        parseLoadLine(t);
        return;
    }
    const std::string_view cmd = t[0];

    if (isWord(cmd, "locale")) {
        expectCount(t, 2, 2, "locale N");
        const Operand id = operand(t[1]);
        execute([&] { host_.setLocaleId(evaluate(id).toLong()); });
    } else if (isWord(cmd, "usermode")) {
        expectCount(t, 2, 2, "usermode True|False");
        const Operand mode = operand(t[1]);
        execute([&] { host_.setUserMode(static_cast<bool>(evaluate(mode).toBoolean())); });
    } else if (isWord(cmd, "new") || isWord(cmd, "load")) {
        const bool isNew = isWord(cmd, "new");
        expectCount(t, 3, 3, isNew ? "new CLASS NAME" : "load CLASS NAME");
        if (!isName(t[1])) throw ParseError{"expected a class name, found " + shown(t[1])};
        const std::u16string className = fromUtf8(t[1]);
        const std::u16string name = controlName(t[2]);
        if (!isNew) {
            pending_ = PendingLoad{className, name, lineNumber_, {}};
            return;
        }
        execute([&] {
            const ClassInfo* cls = findClass(className);
            if (!cls) throw Error(err::MemberNotFound, className + u" is not a public class");
            if (findSite(name)) {
                throw Error(err::WrongArguments,
                            u"A control named " + name + u" is already on the form");
            }
            form_.add(*cls, name);
        });
    } else if (isWord(cmd, "end")) {
        throw ParseError{"end without load"};
    } else if (isWord(cmd, "save")) {
        expectCount(t, 2, 2, "save NAME");
        const std::u16string name = controlName(t[1]);
        execute([&] {
            headless::Site& s = site(name);
            MemoryBag bag;
            s.control().writeProperties(bag);
            for (const auto& [prop, value] : bag.entries()) {
                print("bag " + toUtf8(s.name()) + "." + toUtf8(prop) + " = " +
                      typeWord(value.type()) + " " + formatValue(value));
            }
        });
    } else if (isWord(cmd, "get") || isWord(cmd, "call")) {
        const bool isGet = isWord(cmd, "get");
        if (t.size() < 2)
            throw ParseError{isGet ? "usage: get NAME.MEMBER [ARG ...]"
                                   : "usage: call NAME.METHOD [ARG ...]"};
        const auto target = memberTarget(t[1]);
        const std::u16string& name = target.first;
        const std::u16string& member = target.second;
        std::vector<Operand> args;
        for (std::size_t i = 2; i < t.size(); ++i) args.push_back(operand(t[i]));
        execute([&] {
            Object& object = site(name).control();
            std::vector<Variant> values;
            for (const Operand& a : args) values.push_back(evaluate(a));
            const Variant result =
                invoke(object, member, isGet ? CallKind::Get : CallKind::Method, values);
            // A call prints only what a method returns: nothing for one that returns nothing.
            if (!isGet && result.isEmpty()) {
                const MemberInfo* m = object.classInfo().member(member);
                if (!m || m->type == VarType::Empty) return;
            }
            print("= " + typeWord(result.type()) + " " + formatValue(result));
        });
    } else if (isWord(cmd, "set")) {
        if (t.size() < 4 || t[t.size() - 2] != "=") {
            throw ParseError{"usage: set NAME.MEMBER [ARG ...] = LITERAL"};
        }
        const auto target = memberTarget(t[1]);
        const std::u16string& name = target.first;
        const std::u16string& member = target.second;
        std::vector<Operand> args;
        for (std::size_t i = 2; i + 2 < t.size(); ++i) args.push_back(operand(t[i]));
        const Operand value = operand(t.back());
        execute([&] {
            Object& object = site(name).control();
            std::vector<Variant> values;
            for (const Operand& a : args) values.push_back(evaluate(a));
            const Variant v = evaluate(value);
            invoke(object, member, v.type() == VarType::Object ? CallKind::Set : CallKind::Let,
                   values, v);
        });
    } else if (isWord(cmd, "type")) {
        expectCount(t, 3, 3, "type NAME \"TEXT\"");
        const std::u16string name = controlName(t[1]);
        const Operand text = operand(t[2]);
        execute([&] {
            headless::Site& s = site(name);
            const std::u16string chars = evaluate(text).toString();
            headless::HeadlessWidget* w = s.keyTarget();
            if (!w)
                throw Error(err::MemberNotFound,
                            s.name() + u" has no inner widget that takes keys");
            for (char16_t c : chars) w->type(c);
        });
    } else if (isWord(cmd, "key")) {
        expectCount(t, 3, 4, "key NAME CODE [SHIFT]");
        const std::u16string name = controlName(t[1]);
        const Operand code = operand(t[2]);
        const std::optional<Operand> shift =
            t.size() > 3 ? std::optional(operand(t[3])) : std::nullopt;
        execute([&] {
            headless::Site& s = site(name);
            const std::int16_t k = evaluate(code).toInteger();
            const std::int16_t sh = shift ? evaluate(*shift).toInteger() : std::int16_t{0};
            headless::HeadlessWidget* w = s.keyTarget();
            if (!w)
                throw Error(err::MemberNotFound,
                            s.name() + u" has no inner widget that takes keys");
            w->pressKey(k, sh);
        });
    } else if (isWord(cmd, "caret")) {
        expectCount(t, 3, 4, "caret NAME START [LENGTH]");
        const std::u16string name = controlName(t[1]);
        const Operand start = operand(t[2]);
        const std::optional<Operand> length =
            t.size() > 3 ? std::optional(operand(t[3])) : std::nullopt;
        execute([&] {
            headless::Site& s = site(name);
            const std::int32_t st = evaluate(start).toLong();
            const std::optional<std::int32_t> len =
                length ? std::optional(evaluate(*length).toLong()) : std::nullopt;
            auto* box = dynamic_cast<headless::HeadlessTextBox*>(s.keyTarget());
            if (!box) {
                for (headless::HeadlessWidget* w : s.widgetList()) {
                    box = dynamic_cast<headless::HeadlessTextBox*>(w);
                    if (box) break;
                }
            }
            if (!box) throw Error(err::MemberNotFound, s.name() + u" has no inner text box");
            box->setSelStart(st);
            if (len) box->setSelLength(*len);
        });
    } else if (isWord(cmd, "focus") || isWord(cmd, "blur")) {
        const bool give = isWord(cmd, "focus");
        expectCount(t, 2, 2, give ? "focus NAME" : "blur NAME");
        const std::u16string name = controlName(t[1]);
        execute([&] {
            headless::Site& s = site(name);
            headless::HeadlessWidget* focused = form_.focused();
            const bool inside = focused && &focused->site() == &s;
            if (give) {
                if (inside) return;
                // The focus goes where a user's Tab would put it: the first widget that takes it.
                for (headless::HeadlessWidget* w : s.widgetList()) {
                    if (w->visible() && w->enabled()) {
                        form_.focus(w);
                        return;
                    }
                }
            } else if (inside) {
                form_.focus(nullptr);
            }
        });
    } else if (isWord(cmd, "click")) {
        expectCount(t, 2, 2, "click NAME | NAME.WIDGET | NAME.WIDGET(I)");
        std::string_view target = t[1];
        const std::size_t dot = target.find('.');
        const std::u16string name = controlName(target.substr(0, dot));
        std::optional<std::u16string> widgetName;
        std::int16_t index = -1;
        if (dot != std::string_view::npos) {
            std::string_view rest = target.substr(dot + 1);
            const std::size_t paren = rest.find('(');
            if (paren != std::string_view::npos) {
                if (!rest.ends_with(')'))
                    throw ParseError{"expected NAME.WIDGET(I), found " + shown(target)};
                const Operand i = operand(rest.substr(paren + 1, rest.size() - paren - 2));
                if (i.isName || i.value.type() != VarType::Integer || i.value.asInteger() < 0) {
                    throw ParseError{"the element index of " + shown(target) +
                                     " must be a whole number from 0 to 32767"};
                }
                index = i.value.asInteger();
                rest = rest.substr(0, paren);
            }
            if (!isName(rest)) throw ParseError{"expected NAME.WIDGET, found " + shown(target)};
            widgetName = fromUtf8(rest);
        }
        execute([&] {
            headless::Site& s = site(name);
            if (!widgetName) {
                if (headless::HeadlessWidget* w = firstVisible(s)) w->click();
                return;
            }
            bool nameSeen = false;
            for (headless::HeadlessWidget* w : s.widgetList()) {
                if (!equalsIgnoringCase(w->name(), *widgetName)) continue;
                nameSeen = true;
                if (w->index() == index) {
                    w->click();
                    return;
                }
            }
            if (nameSeen) throw Error(err::ControlArrayElementMissing);
            throw Error(err::MemberNotFound,
                        s.name() + u" has no inner widget named " + *widgetName);
        });
    } else if (isWord(cmd, "resize")) {
        expectCount(t, 4, 4, "resize NAME WIDTH HEIGHT");
        const std::u16string name = controlName(t[1]);
        const Operand width = operand(t[2]);
        const Operand height = operand(t[3]);
        execute([&] {
            headless::Site& s = site(name);
            const float w = evaluate(width).toSingle();
            const float h = evaluate(height).toSingle();
            s.resizeTo(w, h);
        });
    } else if (isWord(cmd, "answer")) {
        expectCount(t, 2, 2, "answer N");
        const Operand answer = operand(t[1]);
        execute([&] { host_.queueAnswer(evaluate(answer).toLong()); });
    } else if (isWord(cmd, "clipboard")) {
        expectCount(t, 2, 2, "clipboard \"TEXT\"");
        const Operand text = operand(t[1]);
        execute([&] { host_.setText(evaluate(text).toString()); });
    } else {
        throw ParseError{"unknown command " + shown(cmd)};
    }
}

void Interpreter::messageBoxShown(const MessageBoxRequest& request) {
    print("msgbox " + std::to_string(request.style) + " " + quoteString(request.title) + " " +
          quoteString(request.text));
}

void Interpreter::eventRaised(headless::Site& site, const EventInfo& event,
                              std::span<const Variant> args) {
    std::string line = "event " + toUtf8(site.name()) + "." + toUtf8(event.name) + "(";
    for (std::size_t i = 0; i < args.size(); ++i) {
        if (i > 0) line += ", ";
        line += formatValue(args[i]);
    }
    print(line + ")");
}

void Interpreter::propertyChanged(headless::Site& site, std::u16string_view name) {
    print("changed " + toUtf8(site.name()) + "." + toUtf8(name));
}

void Interpreter::focusTaken(headless::Site& site) {
    print("focus " + toUtf8(site.name()));
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
