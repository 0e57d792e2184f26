// The script host run in process: exact output lines for each command.
#include <gtest/gtest.h>

#include <sstream>

#include "corvex/headless/widgets.h"
#include "corvex/script/interpreter.h"

using corvex::script::ExitOk;
using corvex::script::ExitParseError;
using corvex::script::Interpreter;
using corvex::script::runScript;
using corvex::script::ScriptResult;

namespace {

std::vector<std::string> lines(const std::string& text) {
    std::vector<std::string> out;
    std::istringstream in(text);
    std::string line;
    while (std::getline(in, line)) out.push_back(line);
    return out;
}

// Runs a script that must run to its end, and returns its output lines.
std::vector<std::string> run(const std::string& script) {
    const ScriptResult r = runScript(script);
    EXPECT_EQ(r.status, ExitOk) << r.diagnostics;
    EXPECT_EQ(r.diagnostics, "");
    return lines(r.output);
}

using Lines = std::vector<std::string>;

TEST(ScriptTest, shouldPrintChangedForEachLetAndTheRestoredValue) {
    EXPECT_EQ(run("new BooleanBox b\nset b.Value = True\nget b.Value\ncall b.Store\n"
                  "set b.Value = False\ncall b.Restore\nget b.Value\n"),
              (Lines{"event b.Resize()", "event b.Click()", "changed b.Value", "= Boolean True",
                     "event b.Click()", "changed b.Value", "event b.Click()", "= Boolean True"}));
}

TEST(ScriptTest, shouldSkipBlankLinesCommentsAndCarriageReturns) {
    EXPECT_EQ(
        run("# a comment\r\n\r\n   \n  # indented comment\nnew BooleanBox b\r\nget b.Enabled\r\n"),
        (Lines{"event b.Resize()", "= Boolean True"}));
}

TEST(ScriptTest, shouldLoadAControlFromTheBagLinesUpToEnd) {
    EXPECT_EQ(run("load BooleanBox c\n"
                  "  Caption = \"Loaded\"\n"
                  "  # comments are fine here\n"
                  "  DefaultValue = True\n"
                  "  KeyName = \"first\"\n"
                  "  keyname = \"second\"\n"
                  "end\n"
                  "get c.Caption\nget c.Value\nget c.KeyName\n"),
              (Lines{"event c.Click()", "changed c.Value", "event c.Resize()",
                     "= String \"Loaded\"", "= Boolean True", "= String \"second\""}));
}

TEST(ScriptTest, shouldPrintAnErrorAndNotCreateAControlThatFailsToLoad) {
    EXPECT_EQ(
        run("load BooleanBox d\n  Font = \"not a font\"\nend\nget d.Value\n"
            "load Gizmo g\nend\n"),
        (Lines{"error 13 \"Type mismatch (saved property \\\"Font\\\")\"",
               "error 424 \"Object required\"", "error 438 \"Gizmo is not a public class\""}));
}

TEST(ScriptTest, shouldSaveEntriesInWriteOrderAndNothingForDefaults) {
    EXPECT_EQ(
        run("new BooleanBox b\nsave b\n"
            "set b.KeyName = \"k\"\nset b.Caption = \"Hello\"\nset b.BackColor = 255\n"
            "set b.Font = Font(\"Arial\", 12, True)\nset b.AlwaysFalseWhenNotEnabled = 3\nsave b\n"
            "set b.Caption = \"chkBooleanBox\"\nsave b\n"),
        (Lines{"event b.Resize()", "changed b.KeyName", "changed b.Caption", "changed b.BackColor",
               "changed b.Font", "changed b.AlwaysFalseWhenNotEnabled",
               "bag b.BackColor = Long 255", "bag b.Caption = String \"Hello\"",
               "bag b.Font = Object Font(\"Arial\", 12, True, False, False, False, 700, 0)",
               "bag b.AlwaysFalseWhenNotEnabled = Boolean 3", "bag b.KeyName = String \"k\"",
               "changed b.Caption", "bag b.BackColor = Long 255",
               "bag b.Font = Object Font(\"Arial\", 12, True, False, False, False, 700, 0)",
               "bag b.AlwaysFalseWhenNotEnabled = Boolean 3", "bag b.KeyName = String \"k\""}));
}

TEST(ScriptTest, shouldRaise382ForDefaultValueAtRunTimeOnly) {
    EXPECT_EQ(run("new BooleanBox b\nset b.DefaultValue = True\nget b.DefaultValue\n"
                  "usermode False\nset b.DefaultValue = True\nget b.DefaultValue\n"),
              (Lines{"event b.Resize()", "error 382 \"Property cannot be set at run time\"",
                     "= Boolean False", "changed b.DefaultValue", "event b.Click()",
                     "changed b.Value", "= Boolean True"}));
}

TEST(ScriptTest, shouldPrint438ForAnUnknownMember) {
    EXPECT_EQ(
        run("new BooleanBox b\nget b.Colour\nset b.Colour = 1\ncall b.Explode\n"),
        (Lines{"event b.Resize()", "error 438 \"Object doesn't support this property or method\"",
               "error 438 \"Object doesn't support this property or method\"",
               "error 438 \"Object doesn't support this property or method\""}));
}

TEST(ScriptTest, shouldPrint424ForAnUnknownControlAndGoOn) {
    EXPECT_EQ(run("get nobody.Value\nset nobody.Value = True\nclick nobody\nnew BooleanBox b\n"
                  "set b.Font = nobody\nget b.Value\n"),
              (Lines{"error 424 \"Object required\"", "error 424 \"Object required\"",
                     "error 424 \"Object required\"", "event b.Resize()",
                     "error 424 \"Object required\"", "= Boolean False"}));
}

TEST(ScriptTest, shouldPassABareControlNameAsAnObject) {
    // The check box is passed as an object: the Font property refuses it as no font (13),
    // where an unknown name would have been 424.
    EXPECT_EQ(run("new BooleanBox a\nnew BooleanBox b\nset b.Font = a\n"),
              (Lines{"event a.Resize()", "event b.Resize()", "error 13 \"Type mismatch\""}));
}

TEST(ScriptTest, shouldMatchMembersAndControlsWithoutRegardToCase) {
    EXPECT_EQ(run("new BooleanBox Box1\nGET box1.VALUE\n"),
              (Lines{"event Box1.Resize()", "= Boolean False"}));
}

TEST(ScriptTest, shouldRefuseASecondControlOfTheSameName) {
    EXPECT_EQ(run("new BooleanBox b\nnew BooleanBox B\nnew Gizmo g\n"),
              (Lines{"event b.Resize()", "error 450 \"A control named B is already on the form\"",
                     "error 438 \"Gizmo is not a public class\""}));
}

TEST(ScriptTest, shouldPrintWhatACallReturnsAndNothingForAProcedure) {
    EXPECT_EQ(run("new NumInputBox n\ncall n.Store\ncall n.ValidateValue\ncall n.Store 1\n"),
              (Lines{"= Boolean True",
                     "error 450 \"Wrong number of arguments or invalid property assignment\""}));
}

TEST(ScriptTest, shouldPrintValuesAsLiterals) {
    EXPECT_EQ(run("new BooleanBox b\n"
                  "set b.Caption = \"q\\\" b\\\\ \\r\\n\\t\\0 \\u0001 \\uD800 日本\"\n"
                  "get b.Caption\nget b.Font\nset b.Font = Font(\"Noto Sans\", 10.5)\nget b.Font\n"
                  "get b.BackColor\nset b.AlwaysFalseWhenNotEnabled = -2\nget "
                  "b.AlwaysFalseWhenNotEnabled\n"),
              (Lines{"event b.Resize()", "changed b.Caption",
                     "= String \"q\\\" b\\\\ \\r\\n\\t\\0 \\u0001 \\uD800 日本\"",
                     "= Object Font(\"IPAGothic\", 9, False, False, False, False, 400, 128)",
                     "changed b.Font",
                     "= Object Font(\"Noto Sans\", 10.5, False, False, False, False, 400, 0)",
                     "= Long -2147483633", "changed b.AlwaysFalseWhenNotEnabled", "= Boolean -2"}));
}

TEST(ScriptTest, shouldTypeThroughTheCheckBoxWhichTakesTheSpaceBar) {
    EXPECT_EQ(run("new BooleanBox b\ntype b \"a \"\nget b.Value\n"),
              (Lines{"event b.Resize()", "event b.KeyDown(65, 0)", "event b.KeyPress(97)",
                     "event b.KeyUp(65, 0)", "event b.KeyDown(32, 0)", "event b.KeyPress(32)",
                     "event b.KeyUp(32, 0)", "event b.Click()", "= Boolean True"}));
}

TEST(ScriptTest, shouldPressKeysWithAShiftState) {
    EXPECT_EQ(run("new BooleanBox b\nkey b 32 1\nkey b 13\nget b.Value\n"),
              (Lines{"event b.Resize()", "event b.KeyDown(32, 1)", "event b.KeyUp(32, 1)",
                     "event b.Click()", "event b.KeyDown(13, 0)", "event b.KeyUp(13, 0)",
                     "= Boolean True"}));
}

TEST(ScriptTest, shouldClickTheControlOrANamedInnerWidget) {
    EXPECT_EQ(run("new BooleanBox b\nclick b\nclick b.chkBooleanBox\nclick B.CHKBOOLEANBOX(2)\n"
                  "click b.cmdNothing\nget b.Value\n"),
              (Lines{"event b.Resize()", "event b.MouseDown(1, 0, 900, 150)",
                     "event b.MouseUp(1, 0, 900, 150)", "event b.Click()",
                     "event b.MouseDown(1, 0, 900, 150)", "event b.MouseUp(1, 0, 900, 150)",
                     "event b.Click()", "error 340 \"Control array element doesn't exist\"",
                     "error 438 \"b has no inner widget named cmdNothing\"", "= Boolean False"}));
}

TEST(ScriptTest, shouldResizeTheSurface) {
    EXPECT_EQ(run("new BooleanBox b\nresize b 3000 600\nclick b\n"),
              (Lines{"event b.Resize()", "event b.Resize()", "event b.MouseDown(1, 0, 1500, 300)",
                     "event b.MouseUp(1, 0, 1500, 300)", "event b.Click()"}));
}

TEST(ScriptTest, shouldGiveAndTakeTheFocus) {
    std::ostringstream out;
    std::ostringstream diagnostics;
    Interpreter in(out, diagnostics);
    ASSERT_EQ(in.run(std::string_view("new BooleanBox a\nnew BooleanBox b\nfocus b\n")), ExitOk);
    const corvex::headless::Site* b = in.form().find(u"b");
    ASSERT_NE(b, nullptr);
    ASSERT_NE(in.form().focused(), nullptr);
    EXPECT_EQ(&in.form().focused()->site(), b);
    ASSERT_EQ(in.feedLine("blur a"), Interpreter::Status::Ok);
    EXPECT_NE(in.form().focused(), nullptr)
        << "blurring a control without the focus changes nothing";
    ASSERT_EQ(in.feedLine("blur b"), Interpreter::Status::Ok);
    EXPECT_EQ(in.form().focused(), nullptr);
}

TEST(ScriptTest, shouldPrintFocusWhenAControlTakesTheFocusBack) {
    // A widget given the focus by a control's own code is reported.
    std::ostringstream out;
    std::ostringstream diagnostics;
    Interpreter in(out, diagnostics);
    ASSERT_EQ(in.feedLine("new BooleanBox b"), Interpreter::Status::Ok);
    in.form().find(u"b")->widgetList().front()->setFocus();
    EXPECT_EQ(lines(out.str()), (Lines{"event b.Resize()", "focus b"}));
}

TEST(ScriptTest, shouldQueueTheAnswerOfTheNextMessageBoxAndPrintTheBox) {
    std::ostringstream out;
    std::ostringstream diagnostics;
    Interpreter in(out, diagnostics);
    ASSERT_EQ(in.feedLine("answer 7"), Interpreter::Status::Ok);
    corvex::MessageBoxRequest request;
    request.text = u"Line one\rLine \"two\"";
    request.style = 4 + 32;
    request.title = u"確認";
    EXPECT_EQ(in.host().messageBox(request), 7);
    EXPECT_EQ(in.host().messageBox(request), 1) << "then the default answer";
    EXPECT_EQ(lines(out.str()), (Lines{"msgbox 36 \"確認\" \"Line one\\rLine \\\"two\\\"\"",
                                       "msgbox 36 \"確認\" \"Line one\\rLine \\\"two\\\"\""}));
}

TEST(ScriptTest, shouldPrintMessageBoxesInTheLocalesLanguage) {
    EXPECT_EQ(
        run("usermode False\nnew NumInputBox n\nset n.Mode = 9\nlocale 1041\nset n.Mode = 9\n"),
        (Lines{"msgbox 16 \"Warning!!\" \"Valid value is from 0 to 4.\"",
               "msgbox 16 \"警告!!\" \"このプロパティには0から4の整数を入力して下さい\""}));
}

TEST(ScriptTest, shouldSetTheClipboardText) {
    std::ostringstream out;
    std::ostringstream diagnostics;
    Interpreter in(out, diagnostics);
    ASSERT_EQ(in.feedLine("clipboard \"héllo 日本\\r\\n\""), Interpreter::Status::Ok);
    EXPECT_EQ(in.host().text(), u"héllo 日本\r\n");
    // Pasted by the user with Ctrl+V into a box that handles the keys itself.
    EXPECT_EQ(
        in.run(std::string_view("new NumInputBox n\nclipboard \"42\"\nkey n 86 2\nget n.Text\n")),
        ExitOk);
    EXPECT_EQ(lines(out.str()).back(), "= String \"42\"");
}

TEST(ScriptTest, shouldSetTheCaretOfTheInnerTextBox) {
    EXPECT_EQ(
        run("new NumInputBox n\nset n.Text = \"12345\"\ncaret n 1 3\nget n.SelText\ncaret n 4\n"
            "get n.SelStart\nget n.SelLength\nnew BooleanBox b\ncaret b 0\n"),
        (Lines{"event n.Change()", "changed n.Text", "= String \"234\"", "= Long 4", "= Long 0",
               "event b.Resize()", "error 438 \"b has no inner text box\""}));
}

TEST(ScriptTest, shouldSetTheAmbientLocaleAndUserMode) {
    std::ostringstream out;
    std::ostringstream diagnostics;
    Interpreter in(out, diagnostics);
    EXPECT_EQ(in.host().localeId(), 1033);
    EXPECT_TRUE(in.host().userMode());
    ASSERT_EQ(in.run(std::string_view("locale 1041\nusermode False\n")), ExitOk);
    EXPECT_EQ(in.host().localeId(), 1041);
    EXPECT_FALSE(in.host().userMode());
}

TEST(ScriptTest, shouldStopWithStatus2AtALineItCannotParse) {
    const ScriptResult r = runScript("new BooleanBox b\n\nfrobnicate b\nget b.Value\n");
    EXPECT_EQ(r.status, ExitParseError);
    EXPECT_EQ(lines(r.output), (Lines{"event b.Resize()"})) << "nothing after the bad line runs";
    EXPECT_EQ(r.diagnostics.rfind("line 3: ", 0), 0u) << r.diagnostics;
}

TEST(ScriptTest, shouldNameTheLineOfEveryParseError) {
    const std::pair<const char*, int> cases[] = {
        {"new BooleanBox b\nget b.Value 12abc\n", 2},
        {"set b.Value True\n", 1},
        {"set b.Value =\n", 1},
        {"get b\n", 1},
        {"get b.\n", 1},
        {"new BooleanBox\n", 1},
        {"new BooleanBox True\n", 1},
        {"new BooleanBox b c\n", 1},
        {"\n\nset b.Caption = \"open\n", 3},
        {"set b.Caption = \"bad \\q escape\"\n", 1},
        {"set b.Caption = \"a\"b\n", 1},
        {"set b.Font = Font(\"A\", 9\n", 1},
        {"locale\n", 1},
        {"click b.chk(x)\n", 1},
        {"click b.chk(-1)\n", 1},
        {"key b\n", 1},
        {"resize b 1\n", 1},
        {"end\n", 1},
        {"# c\nload BooleanBox b\n  Caption = \"x\"\n", 2},
        {"load BooleanBox b\n  Caption \"x\"\nend\n", 2},
        {"load BooleanBox b\n  Caption = 1 2\nend\n", 2},
    };
    for (const auto& [script, line] : cases) {
        const ScriptResult r = runScript(script);
        EXPECT_EQ(r.status, ExitParseError) << script;
        EXPECT_EQ(r.diagnostics.rfind("line " + std::to_string(line) + ": ", 0), 0u)
            << script << " -> " << r.diagnostics;
    }
}

TEST(ScriptTest, shouldRefuseEveryLineAfterAParseError) {
    std::ostringstream out;
    std::ostringstream diagnostics;
    Interpreter in(out, diagnostics);
    EXPECT_EQ(in.feedLine("bogus"), Interpreter::Status::ParseError);
    EXPECT_EQ(in.feedLine("new BooleanBox b"), Interpreter::Status::ParseError);
    EXPECT_EQ(in.form().sites().size(), 0u);
}

TEST(ScriptTest, shouldConvertCommandArgumentsAndReportBadOnesAsErrors) {
    EXPECT_EQ(run("new BooleanBox b\nkey b \"x\"\nkey b 70000\nresize b \"wide\" 1\nlocale b\n"),
              (Lines{"event b.Resize()", "error 13 \"Type mismatch\"", "error 6 \"Overflow\"",
                     "error 13 \"Type mismatch\"", "error 13 \"Type mismatch\""}));
}

TEST(ScriptTest, shouldDropFilesOnTheInnerTextBoxPassingWindowsNamesAsTheyAre) {
    EXPECT_EQ(run("load FileNameBox f\nend\n"
                  "drop f \"C:\\\\a.txt\" \"/etc/hosts\"\nget f.Text\n"
                  "drop f \"\\\\\\\\srv\\\\share\\\\x\"\nget f.Text\n"),
              (Lines{"event f.Change()", "= String \"C:\\\\a.txt\"", "event f.Change()",
                     "= String \"\\\\\\\\srv\\\\share\\\\x\""}));
}

TEST(ScriptTest, shouldRefuseADropOnAControlWithoutATextBoxAndAScriptWithoutAPath) {
    EXPECT_EQ(run("new BooleanBox b\ndrop b \"/tmp/x\"\n"),
              (Lines{"event b.Resize()", "error 438 \"b has no inner text box\""}));
    const ScriptResult r = runScript("new FileNameBox f\ndrop f\n");
    EXPECT_NE(r.status, ExitOk);
    EXPECT_NE(r.diagnostics.find("drop NAME"), std::string::npos) << r.diagnostics;
}

}  // namespace
