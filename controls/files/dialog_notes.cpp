#include "corvex/files/dialog_notes.h"

#include <array>

namespace corvex {

namespace {

// The eleven pieces the notes are made of. The mix of full-width and half-width punctuation
// is the text's own and stays.
constexpr std::array<const char16_t*, 11> pieces{
    u"●cdlOFNExplorer フラグおよび cdlOFNNoDereferenceLinks フラグは、Windows 95 および Windows NT "
    u"4.0 上だけで有効です。",
    u"●Windows 95 上の、cdlOFNExplorer フラグが設定された複数選択コモン "
    u"ダイアログでは、区切り記号として null 文字が使用されます。",
    u"●これに対し、Windows 95 のシェルを使用しない Windows NT "
    u"の以前のバージョンでは、複数選択の区切り記号としてスペースが使用されます｡このため､長いファイ"
    u"ル名を使うことができません｡",
    u"●Windows NT 4.0 および Windows 95 上で cdlOFNAllowMultiselect "
    u"フラグを設定しないと、cdlOFNExplorer フラグおよび cdlOFNLongNames "
    u"フラグの設定が既定値となります。",
    u"●この場合､これらのフラグを個別に設定することは無意味です｡",
    u"●Windows NT 4.0 および Windows 95 上で cdlOFNAllowMultiselect "
    u"フラグを単独で設定すると､長いファイル名を利用できなくなります｡",
    u"●これは､複数選択されたファイル名がスペースで区切られた文字列として取得されるのに対し､長いファ"
    u"イル名にはファイル名の一部としてスペースが含まれることがあるからです。",
    u"●Windows NT 3.51 では、この状況を回避する方法はなく､cdlOFNAllowMultiselect "
    u"を設定すると、長いファイル名は表示されません。",
    u"●Windows 95 上では､cdlOFNExplorer "
    u"フラグを追加設定することによって､複数選択機能を設定していても長いファイル名を取得できるように"
    u"なります｡",
    u"●この場合､複数選択されたファイル名は､スペースではなくnull 文字 "
    u"で区切られた文字列として取得されます。このため、Windows 95 またはWindows NT 4.0 上で",
    u"cdlOFNAllowMultiselect フラグと cdlOFNExplorer "
    u"フラグを併用する場合は､取得したファイル名文字列を解析するルーチンの修正が必要になることがあり"
    u"ます｡ ",
};

std::unique_ptr<DialogNotes>& instance() {
    static std::unique_ptr<DialogNotes> notes;
    return notes;
}

}  // namespace

std::u16string dialogNotesText() {
    std::u16string text;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        text += pieces[i];
        // The tenth piece stops in mid-sentence: the eleventh follows it directly.
        if (i < 9) text += u"\r\n\r\n";
    }
    return text;
}

NoteBoxPlace noteBoxPlace(float width, float height) {
    return {width * 0.02f, height * 0.02f, width * 0.96f, height * 0.9f};
}

struct DialogNotes::Private {
    std::unique_ptr<FormWindow> window;
    std::unique_ptr<TextBox> note;
};

DialogNotes::DialogNotes(FormWindowService& windows) : d(std::make_unique<Private>()) {
    FormWindowSpec spec;
    spec.name = FormName;
    spec.caption = u"ダイアログのフラグについて";
    spec.listener = this;
    d->window = windows.createFormWindow(spec);
    TextBoxSpec box;
    box.name = NoteBoxName;
    box.multiLine = true;
    box.scrollBars = 2;
    const NoteBoxPlace place = noteBoxPlace(d->window->width(), d->window->height());
    box.left = place.left;
    box.top = place.top;
    box.width = place.width;
    box.height = place.height;
    d->note = d->window->widgets().createTextBox(box);
    d->note->setText(dialogNotesText());
    d->note->setLocked(true);
}

DialogNotes::~DialogNotes() {
    // The box goes before the window that holds it.
    d->note.reset();
    d->window.reset();
}

void DialogNotes::showShared(ControlSite& site) {
    auto& notes = instance();
    if (!notes) notes.reset(new DialogNotes(site.formWindows()));
    notes->window().show();
}

DialogNotes* DialogNotes::shared() {
    return instance().get();
}

FormWindow& DialogNotes::window() const {
    return *d->window;
}

TextBox& DialogNotes::noteBox() const {
    return *d->note;
}

void DialogNotes::formResized() {
    if (!d->note) return;  // a resize while the box is being made
    const NoteBoxPlace p = noteBoxPlace(d->window->width(), d->window->height());
    d->note->move(p.left, p.top, p.width, p.height);
}

void DialogNotes::formClosed() {
    // Unloading releases the shared instance: the next ShowAbout makes a fresh form.
    if (instance().get() == this) instance().reset();
}

}  // namespace corvex
