// The common-dialog error texts: every row in both languages, and the row that shows the
// number for every code without one.
#include "corvex/files/dialog_errors.h"

#include <gtest/gtest.h>

#include "corvex/common/text.h"

using namespace corvex;

namespace {

TEST(DialogErrors, shouldGiveEveryRowInEnglish) {
    EXPECT_EQ(comDlgErrorText(-32768, false), u"The function failed to load the dialog box");
    EXPECT_EQ(comDlgErrorText(20476, false),
              u"The buffer at which the member lpstrFile points is too small");
    EXPECT_EQ(comDlgErrorText(20477, false), u"Filename is invalid");
    EXPECT_EQ(comDlgErrorText(20478, false),
              u"An attempt to subclass a list box failed due to insufficient memory");
    EXPECT_EQ(comDlgErrorText(24574, false), u"No fonts exist");
    EXPECT_EQ(comDlgErrorText(28660, false),
              u"The [devices] section of Win.ini doesn't contain an entry for the requested "
              u"printer");
    EXPECT_EQ(comDlgErrorText(28661, false),
              u"The PrintDlg function failed when it attempted to create an information context ");
    EXPECT_EQ(comDlgErrorText(28662, false),
              u"Data in the DevMode and DevNames data structures describe two different printers");
    EXPECT_EQ(comDlgErrorText(28663, false), u"A default printer doesn't exist");
    EXPECT_EQ(comDlgErrorText(28664, false), u"No printer device drivers were found");
    EXPECT_EQ(comDlgErrorText(28665, false), u"The PrintDlg function failed during initialization");
    EXPECT_EQ(comDlgErrorText(28666, false),
              u"The printer device driver failed to initialize a DevMode data structure");
    EXPECT_EQ(comDlgErrorText(28667, false),
              u"The PrintDlg function failed to load the specified printer's device driver");
    EXPECT_EQ(comDlgErrorText(28668, false),
              u"The PDReturnDefault flag was set, but either the hDevMode or hDevNames field was "
              u"nonzero");
    EXPECT_EQ(comDlgErrorText(28669, false),
              u"The CommonDialog function failed to parse the strings in the [devices] section "
              u"of registry");
    EXPECT_EQ(comDlgErrorText(32751, false), u"Call to Windows Help failed");
    EXPECT_EQ(comDlgErrorText(32752, false),
              u"Couldn't allocate memory for FileName or Filter property");
    EXPECT_EQ(comDlgErrorText(32755, false), u"Cancel was selected ");
    EXPECT_EQ(comDlgErrorText(32757, false),
              u"The function was unable to lock the memory associated with a handle");
    EXPECT_EQ(comDlgErrorText(32758, false),
              u"The function was unable to allocate memory for internal data structures");
    EXPECT_EQ(comDlgErrorText(32759, false), u"The function failed to lock a specified resource");
    EXPECT_EQ(comDlgErrorText(32760, false), u"The function failed to load a specified string");
    EXPECT_EQ(comDlgErrorText(32761, false), u"The function failed to load a specified resource");
    EXPECT_EQ(comDlgErrorText(32762, false), u"The function failed to load a specified string. ");
    EXPECT_EQ(comDlgErrorText(32765, false), u"The function failed during initialization");
}

TEST(DialogErrors, shouldGiveEveryRowInJapanese) {
    EXPECT_EQ(comDlgErrorText(-32768, true), u"コモン ダイアログの表示に失敗しました。");
    EXPECT_EQ(comDlgErrorText(20476, true),
              u"メンバ LpstrFile が指しているバッファは小さすぎます。");
    EXPECT_EQ(comDlgErrorText(20477, true), u"ファイル名が不正です。");
    EXPECT_EQ(comDlgErrorText(20478, true),
              u"メモリ不足のため、リスト ボックスのサブクラス化ができませんでした。");
    EXPECT_EQ(comDlgErrorText(24574, true), u"フォントがありません｡");
    EXPECT_EQ(comDlgErrorText(28660, true), u"プリンタが指定されていません｡");
    EXPECT_EQ(comDlgErrorText(28661, true), u"PrintDlg 関数が情報内容の作成に失敗しました。");
    EXPECT_EQ(comDlgErrorText(28662, true),
              u"DevMode と DevNames データ構造で 2 つの異なるプリンタが記述されています。");
    EXPECT_EQ(comDlgErrorText(28663, true), u"通常使うプリンタがありません｡");
    EXPECT_EQ(comDlgErrorText(28664, true), u"プリンタのデバイス ドライバが見つかりません。");
    EXPECT_EQ(comDlgErrorText(28665, true), u" 初期化中に、PrintDlg 関数の実行に失敗しました。")
        << "the leading blank is part of the text";
    EXPECT_EQ(comDlgErrorText(28666, true),
              u"プリンタのデバイス ドライバは DEVMODE データ構造の初期化に失敗しました。");
    EXPECT_EQ(comDlgErrorText(28667, true),
              u"PrintDlg 関数は指定されたプリンタのデバイス ドライバの読み込みに失敗しました。");
    EXPECT_EQ(comDlgErrorText(28668, true),
              u"PDReturnDefault フラグﾞが設定されていますが、hDevMode または hDevNames "
              u"フィールドが 0 ではありません。");
    EXPECT_EQ(comDlgErrorText(28669, true),
              u"CommonDialog 関数がレジストリ内の文字列の解析に失敗しました。");
    EXPECT_EQ(comDlgErrorText(32751, true), u"Windows ヘルプの呼び出しに失敗しました。");
    EXPECT_EQ(comDlgErrorText(32752, true),
              u"FileName または Filter にメモリを割り当てることができませんでした。");
    EXPECT_EQ(comDlgErrorText(32755, true), u"[キャンセル] ボタンが選択されました。");
    EXPECT_EQ(comDlgErrorText(32757, true),
              u"関数は､ハンドルに関連付けられたメモリをロックできませんでした｡");
    EXPECT_EQ(comDlgErrorText(32758, true),
              u"関数は､内部データ構造にメモリを割り当てることができませんでした｡");
    EXPECT_EQ(comDlgErrorText(32759, true), u"関数は､指定したリソースを見つけられませんでした｡");
    EXPECT_EQ(comDlgErrorText(32760, true), u"関数が､指定したリソースのロードに失敗しました｡");
    EXPECT_EQ(comDlgErrorText(32761, true), u"関数が､指定したリソースのロードに失敗しました｡");
    EXPECT_EQ(comDlgErrorText(32762, true), u"関数が、指定した文字列のロードに失敗しました。");
    EXPECT_EQ(comDlgErrorText(32765, true), u"関数が初期化に失敗しました｡");
}

TEST(DialogErrors, shouldShowTheNumberForCodesWithoutARowOfTheirOwn) {
    for (const std::int32_t code : {0, 2, 0x3003, 32753, 32754, 32756, 32763, 32764, -1}) {
        const std::u16string n = u16(std::to_string(code));
        EXPECT_EQ(comDlgErrorText(code, false),
                  u"CommonDialog API error.(CommDlgExtendedError()=" + n + u")");
        EXPECT_EQ(comDlgErrorText(code, true),
                  u"コモンダイアログAPIでエラーが起きました。(CommDlgExtendedError()=" + n + u")");
    }
}

}  // namespace
