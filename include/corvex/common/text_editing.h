// The editing rules of a text box, kept once for every host: what typing, pasting and
// code do to the text and the selection. A host keeps its widget in step with them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace corvex {

/// The clipboard keys of a text box.
enum class ClipboardKey { None, Cut, Copy, Paste };

/// Which clipboard key a key code with its shift state is: Ctrl+X and Shift+Delete cut,
/// Ctrl+C and Ctrl+Insert copy, Ctrl+V and Shift+Insert paste.
ClipboardKey clipboardKeyOf(std::int16_t keyCode, std::int16_t shift);

/// What a text box does with a clipboard key once its KeyDown and KeyPress were raised.
enum class ClipboardKeyEffect {
    Nothing,      ///< the box's own clipboard keys are off, or KeyDown took the key away
    TypeInstead,  ///< a KeyPress handler made it another character (typed unless 0)
    Act,          ///< the box cuts, copies or pastes
};

/// The one rule both hosts follow: native is whether the box does its clipboard keys
/// itself; keyCodeCleared, whether a KeyDown handler set KeyCode to 0; hasPress, whether
/// the key typed a character (original) and raised KeyPress, left as keyAscii.
ClipboardKeyEffect clipboardKeyEffect(bool native, bool keyCodeCleared, bool hasPress,
                                      char16_t original, char16_t keyAscii);

/// Whether c is the first unit of a surrogate pair.
constexpr bool isHighSurrogate(char16_t c) {
    return c >= 0xD800 && c <= 0xDBFF;
}
/// Whether c is the second unit of a surrogate pair.
constexpr bool isLowSurrogate(char16_t c) {
    return c >= 0xDC00 && c <= 0xDFFF;
}

/// Every line break (CR LF, a lone CR or LF, a paragraph separator) as CR LF: the one form
/// a multi-line box holds, so that a text's length is the same on every host.
std::u16string canonicalLineBreaks(std::u16string_view text);

/// What may be inserted of insert where only room units are free (room < 0 counts as 0):
/// what would not fit is cut, never leaving half a surrogate pair or a CR without its LF.
/// Nothing when nothing of a non-empty insertion fits: the edit is refused whole.
std::optional<std::u16string> fitInsertion(std::u16string_view insert, std::int64_t room);

/// What a typed character does to a text box.
enum class TypedAction {
    Insert,     ///< inserts the text of the TypedEdit
    Backspace,  ///< deletes the selection, or what lies before the caret
    Nothing,    ///< changes nothing (a control character, Enter in a single line)
};

/// A typed character's edit.
struct TypedEdit {
    TypedAction action = TypedAction::Nothing;  ///< what happens
    std::u16string text;                        ///< what Insert inserts
};

/// The edit a typed character makes: Backspace deletes, Enter (13) breaks the line of a
/// multi-line box (CR LF), other control characters insert nothing, the rest inserts itself.
TypedEdit typedEdit(char16_t ch, bool multiLine);

/// How many units Backspace deletes before caret: a surrogate pair and (multi-line) a
/// CR LF go whole; 0 at the start.
std::int32_t backspaceWidth(std::u16string_view text, std::int32_t caret, bool multiLine);

/// The text, selection, MaxLength and lock of one text box, with its editing rules. Text,
/// positions and MaxLength count UTF-16 units; a multi-line box holds CR LF line breaks
/// and its selection never ends inside one.
class TextEditModel {
public:
    /// An empty box, single- or multi-line.
    explicit TextEditModel(bool multiLine = false);

    /// The text.
    const std::u16string& text() const { return text_; }
    /// Whether the box holds several lines.
    bool multiLine() const { return multiLine_; }
    /// Start of the selection (the caret).
    std::int32_t selStart() const { return selStart_; }
    /// Length of the selection.
    std::int32_t selLength() const { return selLength_; }
    /// The selected text.
    std::u16string selText() const;
    /// The longest text typing and pasting may make (0: no limit).
    std::int32_t maxLength() const { return maxLength_; }
    /// Whether the user cannot edit.
    bool locked() const { return locked_; }

    /// Sets MaxLength (a negative value counts as 0); the text is kept.
    void setMaxLength(std::int32_t n) { maxLength_ = n < 0 ? 0 : n; }
    /// Locks or unlocks editing by the user; code may still change the text.
    void setLocked(bool v) { locked_ = v; }

    /// Replaces the text as code does: never cut, line breaks made canonical in a
    /// multi-line box, the caret to the start. Returns whether the text changed.
    bool setText(std::u16string_view t);
    /// Moves the caret (clamped to the text; inside a CR LF it goes before it) and clears
    /// the selection.
    void setSelStart(std::int32_t s);
    /// Selects n units from the caret, clamped to the text; a CR LF is taken whole.
    void setSelLength(std::int32_t n);
    /// Selects from start to end in any order (clamped), the caret at the lower one.
    void select(std::int32_t start, std::int32_t end);

    /// Replaces the selection with insert, fitted to MaxLength when limited; the caret
    /// goes after it. Refused whole when nothing of it fits. Returns whether the text
    /// changed (found without comparing the whole text).
    bool replaceSelection(std::u16string_view insert, bool limited);
    /// The user types ch. Returns whether the text changed.
    bool type(char16_t ch);
    /// The user pastes text (limited by MaxLength). Returns whether the text changed.
    bool paste(std::u16string_view t);
    /// The user cuts or deletes the selection. Returns whether the text changed.
    bool deleteSelection();

    /// The room MaxLength leaves for an insertion over the selection (unbounded for 0).
    std::int64_t room() const;

private:
    std::int32_t length() const { return static_cast<std::int32_t>(text_.size()); }
    bool insideLineBreak(std::int32_t at) const;

    std::u16string text_;
    std::int32_t selStart_ = 0;
    std::int32_t selLength_ = 0;
    std::int32_t maxLength_ = 0;
    bool multiLine_;
    bool locked_ = false;
};

}  // namespace corvex
