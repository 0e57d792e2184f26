// The type information read from the class table: one function per method and per
// property accessor, in interface order, with parameters, results and help.
#include "corvex/library/type_info.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "corvex/common/text.h"
#include "corvex/library/class_table.h"

using namespace corvex;

namespace {

const ClassInfo& cls(std::u16string_view name) {
    const ClassInfo* c = findClass(name);
    if (!c) throw std::runtime_error("no class " + toUtf8(name));
    return *c;
}

std::vector<FunctionDesc> functionsOf(std::u16string_view className, std::u16string_view member) {
    std::vector<FunctionDesc> out;
    for (FunctionDesc& f : describeInterface(cls(className))) {
        if (f.name == member) out.push_back(std::move(f));
    }
    return out;
}

std::vector<InvokeKind> kinds(const std::vector<FunctionDesc>& fs) {
    std::vector<InvokeKind> out;
    for (const auto& f : fs) out.push_back(f.kind);
    return out;
}

TEST(TypeInfo, shouldGiveAGetOnlyPropertyOnlyAGet) {
    auto fs = functionsOf(u"NumInputBox", u"ErrFlag");
    ASSERT_EQ(kinds(fs), std::vector<InvokeKind>{InvokeKind::PropertyGet});
    EXPECT_TRUE(fs[0].hasResult);
    EXPECT_EQ(fs[0].result, VarType::Boolean);
    EXPECT_TRUE(fs[0].params.empty());
    EXPECT_EQ(kinds(functionsOf(u"MessageBox", u"Answer")),
              std::vector<InvokeKind>{InvokeKind::PropertyGet});
}

// Where the C++ function takes a copy or a narrower kind, the published parameter still
// says what the interface gives.
TEST(TypeInfo, shouldPublishParametersByReferenceOrAsAnyValueWhereTheInterfaceSaysSo) {
    const auto param = [](std::u16string_view c, std::u16string_view m, std::size_t i) {
        auto fs = functionsOf(c, m);
        EXPECT_EQ(fs.size(), 1u);
        return fs.empty() ? ParamInfo{} : fs[0].params.at(i);
    };
    const ParamInfo mode = param(u"FormHandle", u"SetFormTop", 0);
    EXPECT_TRUE(mode.byRef);
    EXPECT_TRUE(mode.optional);
    EXPECT_EQ(mode.type, VarType::Long);
    EXPECT_TRUE(param(u"SettingHandle", u"SaveIni", 2).byRef);
    EXPECT_TRUE(param(u"MoveList", u"LAddArray", 0).byRef);
    EXPECT_TRUE(param(u"MoveList", u"RAddArray", 0).byRef);
    for (const char16_t* combo : {u"DropDownCombo", u"DropDownList"}) {
        const ParamInfo index = param(combo, u"AddItem", 1);
        EXPECT_EQ(index.type, VarType::Empty);
        EXPECT_TRUE(index.optional);
        EXPECT_FALSE(index.byRef);
    }
}

TEST(TypeInfo, shouldKeepTheLetOfADesignTimeOnlyProperty) {
    ASSERT_TRUE(cls(u"BooleanBox").member(u"DefaultValue")->designTimeOnly);
    auto fs = functionsOf(u"BooleanBox", u"DefaultValue");
    EXPECT_EQ(kinds(fs),
              (std::vector<InvokeKind>{InvokeKind::PropertyGet, InvokeKind::PropertyLet}));
}

TEST(TypeInfo, shouldGiveAnObjectPropertyAGetAndASetButNoLet) {
    auto fs = functionsOf(u"BooleanBox", u"Font");
    ASSERT_EQ(kinds(fs),
              (std::vector<InvokeKind>{InvokeKind::PropertyGet, InvokeKind::PropertySet}));
    EXPECT_EQ(fs[0].result, VarType::Object);
    ASSERT_EQ(fs[1].params.size(), 1u);
    EXPECT_EQ(fs[1].params[0].type, VarType::Object);
    EXPECT_FALSE(fs[1].hasResult);
}

TEST(TypeInfo, shouldEndALetWithTheNewValueAfterTheIndexArguments) {
    auto fs = functionsOf(u"ListBoxEx", u"ItemData");
    ASSERT_EQ(kinds(fs),
              (std::vector<InvokeKind>{InvokeKind::PropertyGet, InvokeKind::PropertyLet}));
    ASSERT_EQ(fs[0].params.size(), 1u);
    EXPECT_EQ(fs[0].params[0].type, VarType::Integer);
    EXPECT_EQ(fs[0].result, VarType::Long);
    ASSERT_EQ(fs[1].params.size(), 2u);
    EXPECT_EQ(fs[1].params[0].name, fs[0].params[0].name);
    EXPECT_EQ(fs[1].params[1].name, NewValueParamName);
    EXPECT_EQ(fs[1].params[1].type, VarType::Long);
    EXPECT_FALSE(fs[1].params[1].optional);
    EXPECT_EQ(fs[1].optionalCount, 0);
}

TEST(TypeInfo, shouldCarryAnEnumeratedPropertysEnumerationToItsGetAndLet) {
    auto fs = functionsOf(u"NumInputBox", u"Mode");
    ASSERT_EQ(fs.size(), 2u);
    for (const auto& f : fs) {
        ASSERT_NE(f.enumeration, nullptr);
        EXPECT_EQ(f.enumeration->name, u"InputMode");
    }
    EXPECT_EQ(fs[1].params.back().type, VarType::Long);
}

TEST(TypeInfo, shouldCountOptionalParameters) {
    auto getIni = functionsOf(u"SettingHandle", u"GetIni");
    ASSERT_EQ(getIni.size(), 1u);
    EXPECT_EQ(getIni[0].params.size(), 4u);
    EXPECT_EQ(getIni[0].optionalCount, 2);
    EXPECT_FALSE(getIni[0].params[1].optional);
    EXPECT_TRUE(getIni[0].params[2].optional);
    auto addItem = functionsOf(u"DropDownCombo", u"AddItem");
    ASSERT_EQ(addItem.size(), 1u);
    EXPECT_EQ(addItem[0].optionalCount, 1);
    EXPECT_EQ(functionsOf(u"BooleanBox", u"Cls")[0].optionalCount, 0);
}

TEST(TypeInfo, shouldMarkByReferenceParameters) {
    auto fs = functionsOf(u"SettingHandle", u"SaveAControlToIni");
    ASSERT_EQ(fs.size(), 1u);
    ASSERT_EQ(fs[0].params.size(), 2u);
    EXPECT_TRUE(fs[0].params[0].byRef);
    EXPECT_EQ(fs[0].params[0].type, VarType::Object);
    EXPECT_FALSE(fs[0].params[1].byRef);
}

TEST(TypeInfo, shouldGiveMethodsTheirResultTypes) {
    auto cancel = functionsOf(u"NumInputBox", u"Cancel");
    ASSERT_EQ(cancel.size(), 1u);
    EXPECT_EQ(cancel[0].kind, InvokeKind::Method);
    EXPECT_TRUE(cancel[0].hasResult);
    EXPECT_EQ(cancel[0].result, VarType::Boolean);

    auto fileOpen = functionsOf(u"FileDialogBox", u"FileOpen");
    ASSERT_EQ(fileOpen.size(), 1u);
    EXPECT_EQ(fileOpen[0].result, VarType::String);

    // A method that returns any kind of value still returns one; Cls returns nothing.
    auto getIni = functionsOf(u"SettingHandle", u"GetIni");
    EXPECT_TRUE(getIni[0].hasResult);
    EXPECT_EQ(getIni[0].result, VarType::Empty);
    EXPECT_FALSE(functionsOf(u"BooleanBox", u"Cls")[0].hasResult);

    auto show = functionsOf(u"MessageBox", u"Show");
    ASSERT_EQ(show.size(), 1u);
    EXPECT_EQ(show[0].result, VarType::Long);
    ASSERT_NE(show[0].enumeration, nullptr);
    EXPECT_EQ(show[0].enumeration->name, u"MsgBoxControlAnswer");
}

TEST(TypeInfo, shouldCarryBothHelpStringsOfTheMember) {
    const MemberInfo* m = cls(u"SettingHandle").member(u"AppName");
    for (const auto& f : functionsOf(u"SettingHandle", u"AppName")) {
        EXPECT_EQ(f.help, m->help);
        EXPECT_EQ(f.helpEnglish, m->helpEnglish);
        EXPECT_FALSE(f.helpEnglish.empty());
    }
}

TEST(TypeInfo, shouldDescribeEveryPublicClassWithDispIdsMatchingItsMembers) {
    for (const ClassInfo* c : publicClasses()) {
        auto fs = describeInterface(*c);
        std::size_t next = 0;
        for (const MemberInfo& m : c->members()) {
            // The member's functions come together, at its place in interface order.
            std::size_t count = 0;
            while (next < fs.size() && fs[next].name == m.name) {
                EXPECT_EQ(fs[next].dispId, m.dispId) << toUtf8(c->name()) << "." << toUtf8(m.name);
                ++next;
                ++count;
            }
            const std::size_t expected =
                m.isMethod ? 1 : (m.get ? 1 : 0) + (m.let ? 1 : 0) + (m.set ? 1 : 0);
            EXPECT_EQ(count, expected) << toUtf8(c->name()) << "." << toUtf8(m.name);
        }
        EXPECT_EQ(next, fs.size()) << toUtf8(c->name());
    }
}

TEST(TypeInfo, shouldGiveNoFunctionsToAClassWithoutMembers) {
    EXPECT_TRUE(describeInterface(cls(u"ppgMSGBOX")).empty());
}

TEST(TypeInfo, shouldNameValueKindsAsScriptsPrintThemAndAnyKindAsVariant) {
    EXPECT_EQ(publishedTypeName(VarType::Empty), "Variant");
    EXPECT_EQ(publishedTypeName(VarType::Boolean), "Boolean");
    EXPECT_EQ(publishedTypeName(VarType::Integer), "Integer");
    EXPECT_EQ(publishedTypeName(VarType::Long), "Long");
    EXPECT_EQ(publishedTypeName(VarType::Single), "Single");
    EXPECT_EQ(publishedTypeName(VarType::Double), "Double");
    EXPECT_EQ(publishedTypeName(VarType::String), "String");
    EXPECT_EQ(publishedTypeName(VarType::Object), "Object");
}

TEST(TypeInfo, shouldNameInvokeKindsByOneWordEach) {
    EXPECT_EQ(invokeKindWord(InvokeKind::Method), "method");
    EXPECT_EQ(invokeKindWord(InvokeKind::PropertyGet), "get");
    EXPECT_EQ(invokeKindWord(InvokeKind::PropertyLet), "let");
    EXPECT_EQ(invokeKindWord(InvokeKind::PropertySet), "set");
}

}  // namespace
