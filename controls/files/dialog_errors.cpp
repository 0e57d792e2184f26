#include "corvex/files/dialog_errors.h"

#include <array>

#include "corvex/common/text.h"

namespace corvex {

namespace {

struct ErrorRow {
    std::int32_t code;
    const char16_t* japanese;
    const char16_t* english;
};

// The texts stand as they were published, trailing and leading blanks and the places where
// the two languages say different things included.
constexpr std::array<ErrorRow, 25> rows{{
    {-32768, u"コモン ダイアログの表示に失敗しました。",
     u"The function failed to load the dialog box"},
    {20476, u"メンバ LpstrFile が指しているバッファは小さすぎます。",
     u"The buffer at which the member lpstrFile points is too small"},
    {20477, u"ファイル名が不正です。", u"Filename is invalid"},
    {20478, u"メモリ不足のため、リスト ボックスのサブクラス化ができませんでした。",
     u"An attempt to subclass a list box failed due to insufficient memory"},
    {24574, u"フォントがありません｡", u"No fonts exist"},
    {28660, u"プリンタが指定されていません｡",
     u"The [devices] section of Win.ini doesn't contain an entry for the requested printer"},
    {28661, u"PrintDlg 関数が情報内容の作成に失敗しました。",
     u"The PrintDlg function failed when it attempted to create an information context "},
    {28662, u"DevMode と DevNames データ構造で 2 つの異なるプリンタが記述されています。",
     u"Data in the DevMode and DevNames data structures describe two different printers"},
    {28663, u"通常使うプリンタがありません｡", u"A default printer doesn't exist"},
    {28664, u"プリンタのデバイス ドライバが見つかりません。",
     u"No printer device drivers were found"},
    {28665, u" 初期化中に、PrintDlg 関数の実行に失敗しました。",
     u"The PrintDlg function failed during initialization"},
    {28666, u"プリンタのデバイス ドライバは DEVMODE データ構造の初期化に失敗しました。",
     u"The printer device driver failed to initialize a DevMode data structure"},
    {28667, u"PrintDlg 関数は指定されたプリンタのデバイス ドライバの読み込みに失敗しました。",
     u"The PrintDlg function failed to load the specified printer's device driver"},
    {28668,
     u"PDReturnDefault フラグﾞが設定されていますが、hDevMode または hDevNames フィールドが 0 "
     u"ではありません。",
     u"The PDReturnDefault flag was set, but either the hDevMode or hDevNames field was nonzero"},
    {28669, u"CommonDialog 関数がレジストリ内の文字列の解析に失敗しました。",
     u"The CommonDialog function failed to parse the strings in the [devices] section of "
     u"registry"},
    {32751, u"Windows ヘルプの呼び出しに失敗しました。", u"Call to Windows Help failed"},
    {32752, u"FileName または Filter にメモリを割り当てることができませんでした。",
     u"Couldn't allocate memory for FileName or Filter property"},
    {32755, u"[キャンセル] ボタンが選択されました。", u"Cancel was selected "},
    {32757, u"関数は､ハンドルに関連付けられたメモリをロックできませんでした｡",
     u"The function was unable to lock the memory associated with a handle"},
    {32758, u"関数は､内部データ構造にメモリを割り当てることができませんでした｡",
     u"The function was unable to allocate memory for internal data structures"},
    {32759, u"関数は､指定したリソースを見つけられませんでした｡",
     u"The function failed to lock a specified resource"},
    {32760, u"関数が､指定したリソースのロードに失敗しました｡",
     u"The function failed to load a specified string"},
    {32761, u"関数が､指定したリソースのロードに失敗しました｡",
     u"The function failed to load a specified resource"},
    {32762, u"関数が、指定した文字列のロードに失敗しました。",
     u"The function failed to load a specified string. "},
    {32765, u"関数が初期化に失敗しました｡", u"The function failed during initialization"},
}};

}  // namespace

std::u16string comDlgErrorText(std::int32_t code, bool japanese) {
    for (const ErrorRow& r : rows) {
        if (r.code == code) return japanese ? r.japanese : r.english;
    }
    const std::u16string number = u16(std::to_string(code));
    return japanese ? u"コモンダイアログAPIでエラーが起きました。(CommDlgExtendedError()=" +
                          number + u")"
                    : u"CommonDialog API error.(CommDlgExtendedError()=" + number + u")";
}

}  // namespace corvex
