// The script host's commands for the form services: the form's and the screen's
// geometry, and property pages driven through their inner widgets.
#include <gtest/gtest.h>

#include <sstream>

#include "corvex/script/interpreter.h"

using corvex::script::ExitOk;
using corvex::script::ExitParseError;
using corvex::script::runScript;
using corvex::script::ScriptResult;

namespace {

using Lines = std::vector<std::string>;

Lines run(const std::string& script) {
    const ScriptResult r = runScript(script);
    EXPECT_EQ(r.status, ExitOk) << r.diagnostics;
    Lines out;
    std::istringstream in(r.output);
    std::string line;
    while (std::getline(in, line)) out.push_back(line);
    return out;
}

std::string parseError(const std::string& script) {
    const ScriptResult r = runScript(script);
    EXPECT_EQ(r.status, ExitParseError);
    return r.diagnostics;
}

TEST(ScriptServices, shouldSetAndReadTheFormsGeometry) {
    EXPECT_EQ(run("form 10 20.5 3000 2000\nget form.Left\nget FORM.top\nget form.Width\n"
                  "get form.Height\nget form.TopMost\n"),
              (Lines{"= Single 10", "= Single 20.5", "= Single 3000", "= Single 2000",
                     "= Boolean False"}));
}

TEST(ScriptServices, shouldCentreOnTheScreenItWasGiven) {
    EXPECT_EQ(run("screen 9600 7200\nform 0 0 4800 3600\nload FormHandle f\nend\n"
                  "call f.SetFormCenter\nget form.Left\nget form.Top\n"),
              (Lines{"= Single 2400", "= Single 1800"}));
}

TEST(ScriptServices, shouldRefuseAnUnknownFormProperty) {
    EXPECT_EQ(run("get form.Caption\n"),
              (Lines{"error 438 \"Object doesn't support this property or method\""}));
}

TEST(ScriptServices, shouldPickAListEntryAndApplyItToTheSelectedControl) {
    EXPECT_EQ(
        run("usermode False\nnew MessageBox m\nnew ppgMSGBOX p\nselect p m\n"
            "pick p.cmbModalType 1\napply p\nget m.ModalType\n"),
        (Lines{"changed m.HelpContext", "changed m.HelpFile", "changed m.Title", "changed m.Prompt",
               "changed m.HelpButton", "changed m.TextRight", "changed m.SetForeGround",
               "changed m.ButtonType", "changed m.DefaultButtonType", "changed m.IconType",
               "changed m.ModalType", "= Long 4096"}));
}

TEST(ScriptServices, shouldTypeIntoANamedWidgetOnly) {
    EXPECT_EQ(run("usermode False\nnew MessageBox m\nnew ppgMSGBOX p\nselect p m\n"
                  "type p.txtPrompt \"Hi\"\ntype p.txtHelpContext \"x7\"\napply p\n"
                  "get m.Prompt\nget m.HelpContext\n")
                  .back(),
              "= Long 70");
}

TEST(ScriptServices, shouldReportWidgetsThatAreMissingOrOfTheWrongKind) {
    EXPECT_EQ(run("new ppgMSGBOX p\npick p.txtTitle 0\npick p.cmbNothing 0\n"
                  "pick p.cmbIconType 5\nselect b\nnew MessageBox b\nselect b b\napply b\n"),
              (Lines{"error 438 \"txtTitle is not a list\"",
                     "error 438 \"p has no inner widget named cmbNothing\"",
                     "error 380 \"Invalid property value\"", "error 424 \"Object required\"",
                     "error 438 \"b is not a property page\"",
                     "error 438 \"b is not a property page\""}));
}

TEST(ScriptServices, shouldRefuseMalformedCommands) {
    EXPECT_NE(parseError("pick p 1\n").find("usage: pick NAME.WIDGET INDEX"), std::string::npos);
    EXPECT_NE(parseError("form 1 2 3\n").find("usage: form"), std::string::npos);
    EXPECT_NE(parseError("screen 1\n").find("usage: screen"), std::string::npos);
    EXPECT_NE(parseError("apply\n").find("usage: apply"), std::string::npos);
    EXPECT_NE(parseError("type p.txt( \"a\"\n").find("expected NAME.WIDGET(I)"), std::string::npos);
}

}  // namespace
