// The text box over a QLineEdit or, multi-line, a QPlainTextEdit. The editing rules are
// the core's; this file maps them onto Qt's editors.
#include "corvex/qt/text_box.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <QInputMethodQueryEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPointer>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextOption>
#include <QValidator>
#include <algorithm>
#include <limits>
#include <optional>
#include <utility>

#include "corvex/common/text_editing.h"
#include "corvex/qt/control_host.h"
#include "corvex/qt/convert.h"
#include "corvex/qt/host.h"
#include "file_drop.h"

namespace corvex::qt {

// never cut.
class LengthLimit : public QValidator {
public:
    LengthLimit(QtTextBox& box, QObject* parent) : QValidator(parent), box_(&box) {}
    void detach() { box_ = nullptr; }

    State validate(QString& input, int&) const override {
        if (!box_) return Acceptable;
        const std::int32_t max = box_->maxLength_;
        if (max <= 0 || input.size() <= max) return Acceptable;
        // A text already longer than the limit (set by code) may still shrink.
        return input.size() <= box_->lineEdit()->text().size() ? Acceptable : Invalid;
    }

private:
    QtTextBox* box_;
};

// The multi-line box's Qt widget. What Qt inserts on its own (a paste from the context
// menu or a key sequence Qt knows, a drop, the middle button) goes through the box, so
// that MaxLength applies and a box without native clipboard keys takes nothing in.
class MemoEdit : public QPlainTextEdit {
public:
    MemoEdit(QtTextBox& box, QWidget* parent) : QPlainTextEdit(parent), box_(&box) {}
    void detach() { box_ = nullptr; }

protected:
    bool canInsertFromMimeData(const QMimeData* source) const override {
        return box_ && box_->nativeClipboard_ && source->hasText();
    }
    void insertFromMimeData(const QMimeData* source) override {
        if (!box_ || !box_->nativeClipboard_ || box_->locked() || !source->hasText()) return;
        box_->replaceSelection(fromQString(source->text()), true, false);
    }

private:
    QtTextBox* box_;
};

namespace {

// The clipboard keys: Qt's own sequences for the platform, and the ones every desktop
// knows whatever the platform's bindings say (the core's rule).
ClipboardKey clipboardKeyOf(const QKeyEvent* event) {
    if (event->matches(QKeySequence::Paste)) return ClipboardKey::Paste;
    if (event->matches(QKeySequence::Cut)) return ClipboardKey::Cut;
    if (event->matches(QKeySequence::Copy)) return ClipboardKey::Copy;
    return corvex::clipboardKeyOf(virtualKeyCode(event->key(), event->modifiers()),
                                  shiftBits(event->modifiers()));
}

}  // namespace

// --- text box: the Qt editors -----------------------------------------------------------

// What the text box needs of its Qt widget, in the widget's own units: a multi-line
// editor's text has one '\n' per line break, and positions count it once.
struct QtTextBox::Editor {
    virtual ~Editor() = default;
    virtual QString text() const = 0;
    // Replaces the whole text; returns whether it changed.
    virtual bool setText(const QString& text) = 0;
    // The text's length, and a position in the box's units (a line break counts twice).
    virtual int length() const = 0;
    virtual std::int32_t boxPosition(int position) const = 0;
    // The editor position of a box position; one inside a line break goes before it, or
    // after it when forward.
    virtual int editorPosition(std::int32_t position, bool forward) const = 0;
    // The text from start to end, without copying the rest.
    virtual QString textRange(int start, int end) const = 0;
    // Whether the text (not only its formats) changed since the last call.
    virtual bool takeTextChanged() = 0;
    virtual int selectionStart() const = 0;
    virtual int selectionEnd() const = 0;
    // Selects from start to end, the caret at end.
    virtual void select(int start, int end) = 0;
    // Replaces the selection: as the user's edit (undo keeps it), or as code's.
    virtual void replaceSelection(const QString& text, bool asEdit) = 0;
    virtual void backspace() = 0;
    virtual bool readOnly() const = 0;
    virtual void setReadOnly(bool v) = 0;
    virtual bool undoAvailable() const = 0;
    virtual bool redoAvailable() const = 0;
    virtual void undo() = 0;
    virtual void redo() = 0;
    virtual void cut() = 0;
    virtual void copy() = 0;
    virtual void selectAll() = 0;
};

// What both Qt editors do alike, forwarded to whichever of them the box holds.
template <class W>
class QtTextBox::ForwardingEditor : public QtTextBox::Editor {
public:
    explicit ForwardingEditor(W* edit) : e_(edit) {}
    bool readOnly() const override { return e_ && e_->isReadOnly(); }
    void setReadOnly(bool v) override {
        if (e_) e_->setReadOnly(v);
    }
    void undo() override {
        if (e_) e_->undo();
    }
    void redo() override {
        if (e_) e_->redo();
    }
    void cut() override {
        if (e_) e_->cut();
    }
    void copy() override {
        if (e_) e_->copy();
    }
    void selectAll() override {
        if (e_) e_->selectAll();
    }

protected:
    QPointer<W> e_;
};

class QtTextBox::LineEditor : public ForwardingEditor<QLineEdit> {
public:
    explicit LineEditor(QLineEdit* edit) : ForwardingEditor(edit) {}
    QString text() const override { return e_ ? e_->text() : QString(); }
    int length() const override { return e_ ? static_cast<int>(e_->text().size()) : 0; }
    std::int32_t boxPosition(int position) const override {
        return std::clamp(position, 0, length());
    }
    int editorPosition(std::int32_t position, bool) const override {
        return std::clamp(position, 0, length());
    }
    QString textRange(int start, int end) const override {
        return e_ ? e_->text().mid(start, end - start) : QString();
    }
    bool takeTextChanged() override {
        // QLineEdit shares its text: the copy is free, and texts of different lengths
        // differ at once.
        const QString now = text();
        const bool changed = now != last_;
        last_ = now;
        return changed;
    }
    bool setText(const QString& text) override {
        if (!e_) return false;
        const QString before = e_->text();
        e_->setText(text);
        last_ = e_->text();
        return last_ != before;
    }
    int selectionStart() const override {
        if (!e_) return 0;
        return e_->hasSelectedText() ? e_->selectionStart() : e_->cursorPosition();
    }
    int selectionEnd() const override {
        if (!e_) return 0;
        return e_->hasSelectedText() ? e_->selectionEnd() : e_->cursorPosition();
    }
    void select(int start, int end) override {
        if (!e_) return;
        if (start == end) {
            e_->setCursorPosition(start);
        } else {
            e_->setSelection(start, end - start);
        }
    }
    void replaceSelection(const QString& text, bool asEdit) override {
        if (!e_) return;
        const QString before = e_->text();
        const int start = selectionStart();
        const int end = selectionEnd();
        // The user's edit keeps Qt's undo history; code's replaces the text whole. Whether
        // Qt took the edit as it is shows in the length and the inserted range alone.
        if (asEdit) {
            e_->insert(text);
            const QString now = e_->text();
            if (now.size() == before.size() - (end - start) + text.size() &&
                QStringView(now).mid(start, text.size()) == text) {
                return;
            }
        }
        QString after = before;
        after.replace(start, end - start, text);
        if (e_->text() != after) e_->setText(after);
    }
    void backspace() override {
        if (e_) e_->backspace();
    }
    bool undoAvailable() const override { return e_ && e_->isUndoAvailable(); }
    bool redoAvailable() const override { return e_ && e_->isRedoAvailable(); }

private:
    QString last_;
};

class QtTextBox::PlainEditor : public ForwardingEditor<QPlainTextEdit> {
public:
    explicit PlainEditor(QPlainTextEdit* edit) : ForwardingEditor(edit) {
        // Each edit names the range it replaced: the text is followed piece by piece, so
        // that a keystroke costs the same in a long text as in a short one.
        QObject::connect(edit->document(), &QTextDocument::contentsChange, &guard_,
                         [this](int at, int removed, int added) { follow(at, removed, added); });
    }
    int length() const override { return e_ ? e_->document()->characterCount() - 1 : 0; }
    std::int32_t boxPosition(int position) const override {
        if (!e_) return 0;
        position = std::clamp(position, 0, length());
        return position + e_->document()->findBlock(position).blockNumber();
    }
    int editorPosition(std::int32_t position, bool forward) const override {
        if (!e_) return 0;
        const QTextDocument* doc = e_->document();
        position = std::max(0, position);
        // The last block starting at or before the position; block n starts n line breaks
        // (one unit each in the editor, two in the box) after its editor position.
        int low = 0;
        int high = doc->blockCount() - 1;
        while (low < high) {
            const int mid = (low + high + 1) / 2;
            if (doc->findBlockByNumber(mid).position() + mid <= position) {
                low = mid;
            } else {
                high = mid - 1;
            }
        }
        const QTextBlock block = doc->findBlockByNumber(low);
        const int textLength = block.length() - 1;
        const std::int32_t offset = position - (block.position() + low);
        if (offset <= textLength) return block.position() + offset;
        if (!block.next().isValid()) return block.position() + textLength;
        return forward ? block.position() + textLength + 1 : block.position() + textLength;
    }
    QString textRange(int start, int end) const override {
        if (!e_ || end <= start) return QString();
        QTextCursor c(e_->document());
        c.setPosition(start);
        c.setPosition(end, QTextCursor::KeepAnchor);
        QString out = c.selectedText();
        out.replace(QChar(QChar::ParagraphSeparator), QLatin1Char('\n'));
        return out;
    }
    bool takeTextChanged() override { return std::exchange(changed_, false); }
    QString text() const override {
        // Block by block: toPlainText() would turn no-break spaces into spaces.
        QString out;
        if (!e_) return out;
        for (QTextBlock b = e_->document()->begin(); b.isValid(); b = b.next()) {
            if (b != e_->document()->begin()) out += QLatin1Char('\n');
            out += b.text();
        }
        return out;
    }
    bool setText(const QString& text) override {
        if (!e_) return false;
        // Qt empties the document and then fills it: the text changed only if it differs
        // once both steps are done.
        const QString before = last_;
        e_->setPlainText(text);
        last_ = this->text();
        changed_ = false;
        return last_ != before;
    }
    int selectionStart() const override { return e_ ? e_->textCursor().selectionStart() : 0; }
    int selectionEnd() const override { return e_ ? e_->textCursor().selectionEnd() : 0; }
    void select(int start, int end) override {
        if (!e_) return;
        QTextCursor c(e_->document());
        c.setPosition(start);
        c.setPosition(end, QTextCursor::KeepAnchor);
        e_->setTextCursor(c);
    }
    void replaceSelection(const QString& text, bool) override {
        if (!e_) return;
        QTextCursor c = e_->textCursor();
        // One edit: one change of the text, one step to undo.
        c.beginEditBlock();
        c.insertText(text);
        c.endEditBlock();
        e_->setTextCursor(c);
    }
    void backspace() override {
        if (!e_) return;
        QTextCursor c = e_->textCursor();
        if (c.hasSelection()) {
            c.removeSelectedText();
        } else {
            c.deletePreviousChar();
        }
        e_->setTextCursor(c);
    }
    bool undoAvailable() const override { return e_ && e_->document()->isUndoAvailable(); }
    bool redoAvailable() const override { return e_ && e_->document()->isRedoAvailable(); }

private:
    // Keeps last_ equal to the text and notes whether an edit changed it: a change of
    // formats alone names a range whose text stays the same.
    void follow(int at, int removed, int added) {
        const int now = length();
        at = std::clamp(at, 0, static_cast<int>(last_.size()));
        removed = std::clamp(removed, 0, static_cast<int>(last_.size()) - at);
        added = std::clamp(added, 0, std::max(0, now - at));
        const QString piece = textRange(at, at + added);
        if (removed != added || QStringView(last_).mid(at, removed) != piece) changed_ = true;
        last_.replace(at, removed, piece);
    }

    QObject guard_;  // ends the connection to the document with this editor
    QString last_;
    bool changed_ = false;
};

namespace {

// A multi-line box's text as the control sees it: CR LF line breaks.
std::u16string withCrLf(const QString& editorText) {
    std::u16string out;
    out.reserve(static_cast<std::size_t>(editorText.size()));
    for (const QChar c : editorText) {
        if (c == QLatin1Char('\n')) out += u'\r';
        out += c.unicode();
    }
    return out;
}

// Text for a multi-line editor: one '\n' per line break (of any kind).
QString withLf(std::u16string_view text) {
    const std::u16string canonical = canonicalLineBreaks(text);
    QString out;
    out.reserve(static_cast<qsizetype>(canonical.size()));
    // In the canonical form every CR is the first half of a CR LF.
    for (const char16_t c : canonical) {
        if (c != u'\r') out += QChar(c);
    }
    return out;
}

}  // namespace

// --- text box -------------------------------------------------------------------------

namespace {

QWidget* newTextWidget(QtControlHost& host, const TextBoxSpec& design, QtTextBox& box) {
    if (design.multiLine) return new MemoEdit(box, &host);
    return new QLineEdit(&host);
}

}  // namespace

QtTextBox::QtTextBox(QtControlHost& host, const TextBoxSpec& design)
    : QtWidget(host, newTextWidget(host, design, *this), design, color::WindowBackground,
               color::WindowText),
      multiLine_(design.multiLine),
      scrollBars_(design.scrollBars),
      nativeClipboard_(design.nativeClipboard) {
    Qt::Alignment horizontal = Qt::AlignLeft;
    if (design.alignment == 1) horizontal = Qt::AlignRight;
    if (design.alignment == 2) horizontal = Qt::AlignHCenter;
    if (QPlainTextEdit* edit = plainTextEdit()) {
        editor_ = std::make_unique<PlainEditor>(edit);
        QTextOption option = edit->document()->defaultTextOption();
        option.setAlignment(horizontal);
        edit->document()->setDefaultTextOption(option);
        // Box i of a MemoBox has the scroll bars of style i. Where there is no horizontal
        // bar, long lines wrap at the edge; the bars a style has are always shown, so that
        // the styles look as different as they are.
        const bool horizontalBar = scrollBars_ == 1 || scrollBars_ == 3;
        const bool verticalBar = scrollBars_ == 2 || scrollBars_ == 3;
        edit->setHorizontalScrollBarPolicy(horizontalBar ? Qt::ScrollBarAlwaysOn
                                                         : Qt::ScrollBarAlwaysOff);
        edit->setVerticalScrollBarPolicy(verticalBar ? Qt::ScrollBarAlwaysOn
                                                     : Qt::ScrollBarAlwaysOff);
        edit->setLineWrapMode(horizontalBar ? QPlainTextEdit::NoWrap : QPlainTextEdit::WidgetWidth);
        // Tab moves on to the next control, as it does from any other box on a form.
        edit->setTabChangesFocus(true);
        QObject::connect(edit, &QPlainTextEdit::textChanged, edit, [this] { textChangedByQt(); });
    } else {
        QLineEdit* line = lineEdit();
        editor_ = std::make_unique<LineEditor>(line);
        // MaxLength is ours to apply: Qt's own limit would also cut text set by code.
        line->setMaxLength(std::numeric_limits<int>::max());
        line->setValidator(new LengthLimit(*this, line));
        line->setAlignment(horizontal | Qt::AlignVCenter);
        QObject::connect(line, &QLineEdit::textChanged, line, [this] { textChangedByQt(); });
    }
    if (!nativeClipboard_) {
        // Nothing comes in past the control's own clipboard keys.
        qtWidget()->setAcceptDrops(false);
        mouseWidget()->setAcceptDrops(false);
    }
    if (design.acceptsFiles) installFileDrop(*this, host.host());
    applyInputMethod();
}

QtTextBox::~QtTextBox() {
    if (auto* memo = dynamic_cast<MemoEdit*>(qtWidget())) memo->detach();
    if (QLineEdit* line = lineEdit()) {
        if (auto* limit = dynamic_cast<LengthLimit*>(const_cast<QValidator*>(line->validator()))) {
            limit->detach();
        }
    }
}

QLineEdit* QtTextBox::lineEdit() const {
    return multiLine_ ? nullptr : static_cast<QLineEdit*>(qtWidget());
}

QPlainTextEdit* QtTextBox::plainTextEdit() const {
    return multiLine_ ? static_cast<QPlainTextEdit*>(qtWidget()) : nullptr;
}

std::int32_t QtTextBox::boxLength() const {
    return editor_->boxPosition(editor_->length());
}

std::u16string QtTextBox::text() const {
    const QString t = editor_->text();
    return multiLine_ ? withCrLf(t) : fromQString(t);
}

void QtTextBox::raiseChange() {
    WidgetEvent e;
    e.type = WidgetEventType::Change;
    notify(e);
}

void QtTextBox::setText(const std::u16string& t) {
    updating_ = true;
    const bool changed = editor_->setText(multiLine_ ? withLf(t) : toQString(t));
    editor_->select(0, 0);
    updating_ = false;
    if (changed) raiseChange();
}

std::int32_t QtTextBox::selStart() const {
    return editor_->boxPosition(editor_->selectionStart());
}

void QtTextBox::setSelStart(std::int32_t s) {
    const int at = editor_->editorPosition(std::max(0, s), false);
    editor_->select(at, at);
}

std::int32_t QtTextBox::selLength() const {
    return editor_->boxPosition(editor_->selectionEnd()) -
           editor_->boxPosition(editor_->selectionStart());
}

void QtTextBox::setSelLength(std::int32_t n) {
    const int start = editor_->selectionStart();
    const std::int32_t from = editor_->boxPosition(start);
    const std::int32_t count = std::clamp(n, 0, boxLength() - from);
    editor_->select(start, editor_->editorPosition(from + count, true));
}

std::u16string QtTextBox::selText() const {
    const QString selected = editor_->textRange(editor_->selectionStart(), editor_->selectionEnd());
    return multiLine_ ? withCrLf(selected) : fromQString(selected);
}

void QtTextBox::setSelText(const std::u16string& t) {
    replaceSelection(t, true, true);
}

std::int32_t QtTextBox::maxLength() const {
    return maxLength_;
}

void QtTextBox::setMaxLength(std::int32_t n) {
    maxLength_ = std::max(0, n);
}

std::int16_t QtTextBox::imeMode() const {
    return imeMode_;
}

void QtTextBox::setImeMode(std::int16_t m) {
    imeMode_ = m;
    applyInputMethod();
}

bool QtTextBox::locked() const {
    return editor_->readOnly();
}

void QtTextBox::setLocked(bool v) {
    editor_->setReadOnly(v);
    // Qt turns the input method off and on with read-only; the mode still rules.
    applyInputMethod();
}

void QtTextBox::applyInputMethod() {
    QWidget* w = qtWidget();
    if (!w) return;
    const InputMethodSetting setting = inputMethodSetting(imeMode_);
    w->setAttribute(Qt::WA_InputMethodEnabled, setting.enabled && !locked());
    constexpr Qt::InputMethodHints ours = Qt::ImhPreferLatin | Qt::ImhLatinOnly;
    w->setInputMethodHints((w->inputMethodHints() & ~ours) | setting.hints);
    if (w->hasFocus()) QGuiApplication::inputMethod()->update(Qt::ImEnabled | Qt::ImHints);
}

void QtTextBox::replaceSelection(std::u16string insert, bool limited, bool byCode) {
    if (multiLine_) insert = canonicalLineBreaks(insert);
    const int start = editor_->selectionStart();
    const int end = editor_->selectionEnd();
    if (limited && maxLength_ > 0) {
        const std::int64_t selected = editor_->boxPosition(end) - editor_->boxPosition(start);
        const std::int64_t room = static_cast<std::int64_t>(maxLength_) - (boxLength() - selected);
        std::optional<std::u16string> fitted = fitInsertion(insert, room);
        // Nothing fits: the selection stays. Deleting it is always possible.
        if (!fitted) return;
        insert = std::move(*fitted);
    }
    const QString text = multiLine_ ? withLf(insert) : toQString(insert);
    if (byCode) {
        updating_ = true;
        changedByCode_ = false;
    }
    editor_->replaceSelection(text, !byCode);
    const int caret = start + static_cast<int>(text.size());
    editor_->select(caret, caret);
    if (byCode) {
        updating_ = false;
        if (changedByCode_) raiseChange();
    }
}

void QtTextBox::pasteFromClipboard() {
    // Pasted text is cut to MaxLength, as typing is refused past it.
    replaceSelection(fromQString(QGuiApplication::clipboard()->text()), true, false);
}

void QtTextBox::typeCharacter(char16_t ch) {
    if (locked()) return;
    // What a character does is the core's rule; Backspace is the editor's own, so that Qt
    // keeps its undo history (it removes a surrogate pair or a line break whole too).
    const TypedEdit edit = typedEdit(ch, multiLine_);
    if (edit.action == TypedAction::Backspace) {
        editor_->backspace();
    } else if (edit.action == TypedAction::Insert) {
        replaceSelection(edit.text, true, false);
    }
}

bool QtTextBox::keyTyped(QKeyEvent* event, const TypedKey& key) {
    if (const ClipboardKey clip = clipboardKeyOf(event); clip != ClipboardKey::None) {
        switch (clipboardKeyEffect(nativeClipboard_, key.keyCodeCleared, key.hasPress, key.original,
                                   key.keyAscii)) {
            case ClipboardKeyEffect::Nothing:
                return true;
            case ClipboardKeyEffect::TypeInstead:
                typeCharacter(key.keyAscii);
                return true;
            case ClipboardKeyEffect::Act:
                break;
        }
        if (clip == ClipboardKey::Paste) {
            if (!locked()) pasteFromClipboard();
            return true;
        }
        return false;  // Qt copies, and cuts
    }
    if (multiLine_ && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)) {
        // Qt's own Enter would break a line past MaxLength, or softly with Shift: the box
        // types what KeyPress left (13 a line break, 10 nothing), and nothing else.
        if (key.hasPress) typeCharacter(key.keyAscii);
        return true;
    }
    if (!key.hasPress) return key.keyCodeCleared;  // navigation and deletion keys
    if (key.keyAscii == 0) return true;            // swallowed by a KeyPress handler
    if (key.keyAscii != key.original) {
        typeCharacter(key.keyAscii);
        return true;
    }
    // Backspace, Escape, Enter in a single line and the Ctrl shortcuts keep their Qt meaning.
    if (key.original < 0x20) return false;
    if (locked()) return true;
    // The whole text of the key: a character beyond the first plane is two units.
    const QString text = event->text();
    if (text.size() > 1) {
        replaceSelection(fromQString(text), true, false);
    } else {
        typeCharacter(key.original);
    }
    return true;
}

bool QtTextBox::inputMethodCommitted(QInputMethodEvent* event) {
    QWidget* w = qtWidget();
    const QString commit = event->commitString();
    if (forwarding_ || !w || commit.isEmpty()) return false;
    // What an input method commits is typed too: one KeyPress per code unit, each of
    // which its handlers may swallow or replace.
    const auto alive = aliveFlag();
    QString accepted;
    for (const QChar c : commit) {
        WidgetEvent press;
        press.type = WidgetEventType::KeyPress;
        press.keyAscii = static_cast<std::int16_t>(c.unicode());
        notifyFromQt(press);
        if (!*alive || !qtWidget()) return true;
        const auto ch = static_cast<char16_t>(press.keyAscii);
        if (ch >= 0x20 && ch != 0x7F) accepted += QChar(ch);
    }
    if (locked()) accepted.clear();
    if (maxLength_ > 0) {
        const std::int64_t room = maxLength_ - (boxLength() - selLength());
        accepted = toQString(fitInsertion(fromQString(accepted), room).value_or(u""));
    }
    if (accepted == commit) return false;  // Qt commits it as it is
    QInputMethodEvent changed(event->preeditString(), event->attributes());
    changed.setCommitString(accepted, event->replacementStart(), event->replacementLength());
    forwarding_ = true;
    QApplication::sendEvent(w, &changed);
    forwarding_ = false;
    return true;
}

bool QtTextBox::inputMethodQueried(QInputMethodQueryEvent* query) {
    QWidget* w = qtWidget();
    if (!w || inputMethodSetting(imeMode_).enabled) return false;
    // Qt's text widgets say they take the input method whenever they are enabled and
    // editable, whatever Qt::WA_InputMethodEnabled says; a mode without it says no itself.
    // The other answers are the widget's own, as Qt would give them.
    for (unsigned bit = 0; bit < 32; ++bit) {
        const auto q = static_cast<Qt::InputMethodQuery>(query->queries().toInt() & (1u << bit));
        if (!q) continue;
        query->setValue(q, q == Qt::ImEnabled ? QVariant(false) : w->inputMethodQuery(q));
    }
    query->accept();
    return true;
}

bool QtTextBox::keepsMouseFromQt(QMouseEvent* event) {
    // The middle button pastes the selection on some desktops; a box whose control owns
    // the clipboard keys takes nothing in that way.
    return !nativeClipboard_ && event->button() == Qt::MiddleButton;
}

void QtTextBox::pressOnBox(int qtKey, char16_t ch) {
    // As if the user pressed Ctrl with the key: KeyDown, KeyPress and KeyUp reach the
    // control, whose KeyDown rule does the work.
    QPointer<QWidget> w = qtWidget();
    if (!w) return;
    QKeyEvent press(QEvent::KeyPress, qtKey, Qt::ControlModifier, QString(QChar(ch)));
    QApplication::sendEvent(w, &press);
    if (!w) return;
    QKeyEvent release(QEvent::KeyRelease, qtKey, Qt::ControlModifier, QString(QChar(ch)));
    QApplication::sendEvent(w, &release);
}

QMenu* QtTextBox::createContextMenu(QWidget* parent) {
    auto* menu = new QMenu(parent);
    const bool editable = !locked();
    const bool selection = selLength() > 0;
    const auto shortcut = [](QKeySequence::StandardKey k) {
        const QString keys = QKeySequence(k).toString(QKeySequence::NativeText);
        return keys.isEmpty() ? QString() : QLatin1Char('\t') + keys;
    };
    // Every action first checks that the box is still there: a handler may unload the
    // control while the menu is up.
    const std::shared_ptr<const bool> alive = aliveFlag();
    const auto add = [&](const QString& text, bool enabled, auto action) {
        QAction* item = menu->addAction(text);
        item->setEnabled(enabled);
        QObject::connect(item, &QAction::triggered, menu, [alive, action] {
            if (*alive) action();
        });
    };
    add(QLineEdit::tr("&Undo") + shortcut(QKeySequence::Undo), editable && editor_->undoAvailable(),
        [this] { editor_->undo(); });
    add(QLineEdit::tr("&Redo") + shortcut(QKeySequence::Redo), editable && editor_->redoAvailable(),
        [this] { editor_->redo(); });
    menu->addSeparator();
    add(QLineEdit::tr("Cu&t") + shortcut(QKeySequence::Cut), editable && selection, [this] {
        if (nativeClipboard_) {
            editor_->cut();
        } else {
            pressOnBox(Qt::Key_X, 0x18);
        }
    });
    add(QLineEdit::tr("&Copy") + shortcut(QKeySequence::Copy), selection, [this] {
        if (nativeClipboard_) {
            editor_->copy();
        } else {
            pressOnBox(Qt::Key_C, 0x03);
        }
    });
    add(QLineEdit::tr("&Paste") + shortcut(QKeySequence::Paste),
        editable && !QGuiApplication::clipboard()->text().isEmpty(), [this] {
            if (nativeClipboard_) {
                pasteFromClipboard();
            } else {
                pressOnBox(Qt::Key_V, 0x16);
            }
        });
    add(QLineEdit::tr("Delete"), editable && selection,
        [this] { replaceSelection(std::u16string(), false, false); });
    menu->addSeparator();
    add(QLineEdit::tr("Select All") + shortcut(QKeySequence::SelectAll), !text().empty(),
        [this] { editor_->selectAll(); });
    return menu;
}

bool QtTextBox::showContextMenu(QContextMenuEvent* event) {
    QPointer<QMenu> menu = createContextMenu(nullptr);
    menu->exec(event->globalPos());
    delete menu.data();
    return true;
}

void QtTextBox::textChangedByQt() {
    // Qt also says "changed" when only the formats did; Change is for the text.
    if (!editor_->takeTextChanged()) return;
    if (updating_) {
        changedByCode_ = true;  // raised once the code's edit is complete
        return;
    }
    WidgetEvent e;
    e.type = WidgetEventType::Change;
    notifyFromQt(e);
}

}  // namespace corvex::qt
