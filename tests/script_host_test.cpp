// The script host against bad input and lost controls: get of a method, byte-order marks,
// long lines in diagnostics, output that cannot be written, and controls unloaded while
// a script or a reference still names them.
#include <gtest/gtest.h>

#include <sstream>
#include <streambuf>

#include "corvex/common/error.h"
#include "corvex/common/object.h"
#include "corvex/script/interpreter.h"

using namespace corvex;
using corvex::script::ExitIoError;
using corvex::script::ExitOk;
using corvex::script::ExitParseError;
using corvex::script::Interpreter;
using corvex::script::runScript;
using corvex::script::ScriptResult;

namespace {

using Lines = std::vector<std::string>;

Lines lines(const std::string& text) {
    Lines out;
    std::istringstream in(text);
    std::string line;
    while (std::getline(in, line)) out.push_back(line);
    return out;
}

Lines run(const std::string& script) {
    const ScriptResult r = runScript(script);
    EXPECT_EQ(r.status, ExitOk) << r.diagnostics;
    return lines(r.output);
}

// An output device that is always full.
struct FullBuffer : std::streambuf {
    int overflow(int) override { return traits_type::eof(); }
};

TEST(ScriptHost, shouldRefuseGetOfAMethodWithoutRunningIt) {
    EXPECT_EQ(run("new BooleanBox b\nset b.Value = True\nget b.Cls\nget b.Value\n"),
              (Lines{"event b.Resize()", "event b.Click()", "changed b.Value",
                     "error 438 \"Cls is a method: use call, not get\"", "= Boolean True"}));
}

TEST(ScriptHost, shouldSkipAByteOrderMarkAtTheStartOnly) {
    EXPECT_EQ(run("\xEF\xBB\xBFnew BooleanBox b\n"), (Lines{"event b.Resize()"}));
    const ScriptResult r = runScript("new BooleanBox b\n\xEF\xBB\xBFget b.Value\n");
    EXPECT_EQ(r.status, ExitParseError);
    EXPECT_EQ(r.diagnostics.rfind("line 2: ", 0), 0u) << r.diagnostics;
}

TEST(ScriptHost, shouldQuoteOnlyAShortPieceOfALongLineInItsDiagnostics) {
    const std::string huge(1u << 20, '9');
    for (const std::string& script :
         {"new BooleanBox b\nset b.Value = 1" + huge + "x\n", "frobnicate" + huge + "\n",
          "load BooleanBox b" + huge + "\n"}) {
        const ScriptResult r = runScript(script);
        EXPECT_EQ(r.status, ExitParseError);
        EXPECT_LT(r.diagnostics.size(), 300u) << r.diagnostics.substr(0, 300);
        EXPECT_EQ(r.diagnostics.back(), '\n');
    }
}

TEST(ScriptHost, shouldUnloadAControlAndRefuseItsNameAfterwards) {
    EXPECT_EQ(run("new BooleanBox b\nunload B\nget b.Value\nunload b\nnew BooleanBox b\n"),
              (Lines{"event b.Resize()", "error 424 \"Object required\"",
                     "error 424 \"Object required\"", "event b.Resize()"}));
}

TEST(ScriptHost, shouldDetachAnUnloadedControlKeptByReference) {
    std::ostringstream out;
    std::ostringstream diagnostics;
    Interpreter in(out, diagnostics);
    ASSERT_EQ(in.feedLine("new NumInputBox n"), Interpreter::Status::Ok);
    const Variant kept(ObjectRef(in.form().find(u"N")->controlRef()));
    ASSERT_EQ(in.feedLine("unload n"), Interpreter::Status::Ok);
    for (const MemberInfo& m : kept.asObject()->classInfo().members()) {
        try {
            invoke(*kept.asObject(), m.name, m.isMethod ? CallKind::Method : CallKind::Get);
            ADD_FAILURE() << "no error";
        } catch (const Error& e) {
            EXPECT_EQ(e.number(), err::ClientSiteNotAvailable);
        }
    }
    EXPECT_EQ(diagnostics.str(), "");
}

TEST(ScriptHost, shouldFailWhenItsOutputCannotBeWritten) {
    FullBuffer full;
    std::ostream out(&full);
    std::ostringstream diagnostics;
    Interpreter in(out, diagnostics);
    std::istringstream script("new BooleanBox b\nget b.Value\n");
    EXPECT_EQ(in.run(script), ExitIoError);
    EXPECT_NE(diagnostics.str().find("cannot write the output"), std::string::npos);
}

TEST(ScriptHost, shouldReachTheElementsOfAControlArrayByIndex) {
    EXPECT_EQ(
        run("new BooleanBox opt(0)\nload BooleanBox OPT(2)\n  Caption = \"two\"\nend\n"
            "get opt(2).Caption\nset opt(0).Value = True\nget opt(1).Value\nget opt.Value\n"
            "unload opt(0)\nget opt(0).Value\nsave opt(2)\n"),
        (Lines{"event opt(0).Resize()", "changed OPT(2).Value", "event OPT(2).Resize()",
               "= String \"two\"", "event opt(0).Click()", "changed opt(0).Value",
               "error 340 \"Control array element doesn't exist\"", "error 424 \"Object required\"",
               "error 340 \"Control array element doesn't exist\"",
               "bag OPT(2).Caption = String \"two\""}));
    const ScriptResult r = runScript("new BooleanBox opt(40000)\n");
    EXPECT_EQ(r.status, ExitParseError);
}

TEST(ScriptHost, shouldFindAControlAmongManyByItsName) {
    std::string script;
    for (int i = 0; i < 3000; ++i) script += "new BooleanBox c" + std::to_string(i) + "\n";
    script += "set C2999.Caption = \"last\"\nget c2999.Caption\n";
    const Lines out = run(script);
    ASSERT_FALSE(out.empty());
    EXPECT_EQ(out.back(), "= String \"last\"");
}

}  // namespace
