// The Qt host's text box.
#pragma once

#include "corvex/qt/widget.h"

class QLineEdit;
class QMenu;
class QPlainTextEdit;

namespace corvex::qt {

/// A text box: a QLineEdit, or a QPlainTextEdit when the design is multi-line. Typing,
/// and what an input method commits, goes through KeyPress: the character the handlers
/// leave is inserted (none for 0; 13 is a line break in a multi-line box), limited by
/// MaxLength (0: none); text set by code is never cut. Every change of the text raises
/// Change.
///
/// A multi-line box's text has CR LF line breaks, as files and the other hosts keep them;
/// the QPlainTextEdit holds one block break per line, so the box converts at its edge and
/// counts each line break as two units in SelStart, SelLength and MaxLength. A lone CR or
/// LF set by code becomes a line break too, and reads back as CR LF.
///
/// Without native clipboard keys (TextBoxSpec::nativeClipboard false) the box never copies,
/// cuts or pastes by itself: Ctrl+C/X/V, Ctrl+Insert, Shift+Insert, Shift+Delete and Qt's
/// Copy/Cut/Paste sequences reach the control as KeyDown (and KeyPress) and nothing more;
/// the context menu's Cut, Copy and Paste press Ctrl+X, Ctrl+C and Ctrl+V on the box; drops
/// and the middle-button paste are refused.
class QtTextBox : public QtWidget, public TextBox {
public:
    /// A text box on host made as design describes (alignment 0 left, 1 right, 2 centre).
    QtTextBox(QtControlHost& host, const TextBoxSpec& design);
    ~QtTextBox() override;

    /// The QLineEdit of a single-line box; null for a multi-line one.
    QLineEdit* lineEdit() const;
    /// The QPlainTextEdit of a multi-line box; null for a single-line one.
    QPlainTextEdit* plainTextEdit() const;
    /// Whether the box holds several lines.
    bool multiLine() const { return multiLine_; }
    /// The scroll bars it was made with (0 none, 1 horizontal, 2 vertical, 3 both).
    std::int16_t scrollBars() const { return scrollBars_; }
    /// Whether the clipboard keys act by themselves.
    bool nativeClipboard() const { return nativeClipboard_; }
    /// A new context menu for the box (Undo ... Select All), owned by the caller.
    QMenu* createContextMenu(QWidget* parent = nullptr);

    /// The text (CR LF line breaks in a multi-line box).
    std::u16string text() const override;
    /// Replaces the text, never cut (caret to the start); raises Change when it differs.
    void setText(const std::u16string& t) override;
    /// Caret position (start of the selection), in UTF-16 units.
    std::int32_t selStart() const override;
    /// Moves the caret, clearing the selection (a position inside a line break goes before it).
    void setSelStart(std::int32_t s) override;
    /// Length of the selection.
    std::int32_t selLength() const override;
    /// Selects n units from the caret (clamped to the text; a line break is taken whole).
    void setSelLength(std::int32_t n) override;
    /// The selected text.
    std::u16string selText() const override;
    /// Replaces the selection, cut to MaxLength; raises Change.
    void setSelText(const std::u16string& t) override;
    /// The longest text typing may make (0: no limit).
    std::int32_t maxLength() const override;
    /// Sets MaxLength; the text already there is kept.
    void setMaxLength(std::int32_t n) override;
    /// The input-method mode as it was set.
    std::int16_t imeMode() const override;
    /// Sets the input-method mode and steers Qt's input method by it (inputMethodSetting()).
    void setImeMode(std::int16_t m) override;
    /// Whether the user cannot edit (the Qt widget is read-only).
    bool locked() const override;
    /// Locks or unlocks editing by the user; code may still change the text.
    void setLocked(bool v) override;

protected:
    bool keyTyped(QKeyEvent* event, const TypedKey& key) override;
    bool inputMethodCommitted(QInputMethodEvent* event) override;
    bool inputMethodQueried(QInputMethodQueryEvent* query) override;
    bool clicksOnRelease() const override { return true; }
    bool keepsMouseFromQt(QMouseEvent* event) override;
    bool showContextMenu(QContextMenuEvent* event) override;

private:
    friend class LengthLimit;
    friend class FileDrop;
    friend class MemoEdit;
    struct Editor;
    template <class W>
    class ForwardingEditor;
    class LineEditor;
    class PlainEditor;
    void typeCharacter(char16_t ch);
    void replaceSelection(std::u16string insert, bool limited, bool byCode);
    void pasteFromClipboard();
    void pressOnBox(int qtKey, char16_t ch);
    void textChangedByQt();
    void raiseChange();
    void applyInputMethod();
    std::int32_t boxLength() const;
    std::unique_ptr<Editor> editor_;
    bool multiLine_ = false;
    std::int16_t scrollBars_ = 0;
    bool nativeClipboard_ = true;
    std::int32_t maxLength_ = 0;
    std::int16_t imeMode_ = 0;
    bool updating_ = false;
    bool forwarding_ = false;
    bool changedByCode_ = false;
};

}  // namespace corvex::qt
