// What the class table says about every member of every public class: numbers, help,
// enumerations, design-time-only lets and saved properties. Tools read only this.
#include "corvex/library/class_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

#include "corvex/common/boolean_box.h"
#include "corvex/common/text.h"
#include "corvex/entry/memo_box.h"
#include "corvex/entry/num_input_box.h"
#include "corvex/files/file_dialog_box.h"
#include "corvex/library/enums.h"
#include "corvex/lists/drop_down_combo.h"
#include "corvex/lists/list_box_ex.h"
#include "corvex/services/msgbox_enums.h"

using namespace corvex;

namespace {

std::string nameOf(const ClassInfo& c, const MemberInfo& m) {
    return toUtf8(c.name()) + "." + toUtf8(m.name);
}

TEST(ClassTable, shouldNumberEveryMemberFromOneInInterfaceOrder) {
    for (const ClassInfo* c : publicClasses()) {
        for (std::size_t i = 0; i < c->members().size(); ++i) {
            const MemberInfo& m = c->members()[i];
            EXPECT_EQ(m.dispId, static_cast<int>(i) + 1) << nameOf(*c, m);
            EXPECT_EQ(c->memberById(m.dispId), &m) << nameOf(*c, m);
        }
        EXPECT_EQ(c->memberById(0), nullptr);
        EXPECT_EQ(c->memberById(static_cast<int>(c->members().size()) + 1), nullptr);
    }
    EXPECT_EQ(NumInputBox::staticClassInfo().member(u"ErrBase")->dispId, 34);
    EXPECT_EQ(MemoBox::staticClassInfo().member(u"Value")->dispId, 20);
}

TEST(ClassTable, shouldGiveEveryMemberAHelpString) {
    for (const ClassInfo* c : publicClasses()) {
        for (const auto& m : c->members()) EXPECT_FALSE(m.help.empty()) << nameOf(*c, m);
    }
}

TEST(ClassTable, shouldGiveEveryMemberAnEnglishHelpStringBesideTheJapaneseOne) {
    for (const ClassInfo* c : publicClasses()) {
        for (const auto& m : c->members()) {
            EXPECT_FALSE(m.helpEnglish.empty()) << nameOf(*c, m);
            EXPECT_NE(m.helpEnglish, m.help) << nameOf(*c, m);
            // An English line is plain ASCII text, a sentence ending in a full stop.
            EXPECT_TRUE(std::all_of(m.helpEnglish.begin(), m.helpEnglish.end(), [](char16_t ch) {
                return ch >= 0x20 && ch < 0x7f;
            })) << nameOf(*c, m);
            EXPECT_EQ(m.helpEnglish.back(), u'.') << nameOf(*c, m);
        }
    }
}

TEST(ClassTable, shouldGiveACommonMemberTheSameHelpInEveryClass) {
    std::map<std::u16string, std::set<std::u16string>> helps;
    for (const ClassInfo* c : publicClasses()) {
        for (const auto& m : c->members()) helps[m.name].insert(m.help);
    }
    for (const MemberDoc& doc :
         {common::BackColor, common::DefaultValue, common::Enabled, common::Font, common::ForeColor,
          common::KeyName, common::SectionName, common::Refresh}) {
        EXPECT_EQ(helps[doc.name], std::set<std::u16string>{doc.help}) << toUtf8(doc.name);
    }
}

TEST(ClassTable, shouldGiveACommonMemberTheSameEnglishHelpInEveryClass) {
    std::map<std::u16string, std::set<std::u16string>> helps;
    for (const ClassInfo* c : publicClasses()) {
        for (const auto& m : c->members()) helps[m.name].insert(m.helpEnglish);
    }
    for (const MemberDoc& doc :
         {common::Refresh, common::BackColor, common::Caption, common::DefaultValue,
          common::Enabled, common::Font, common::ForeColor, common::IMEMode, common::KeyName,
          common::SectionName, common::SelLength, common::SelStart, common::SelText, common::Text,
          common::ErrBase}) {
        ASSERT_TRUE(helps.count(doc.name)) << toUtf8(doc.name);
        EXPECT_EQ(helps[doc.name], std::set<std::u16string>{doc.helpEnglish}) << toUtf8(doc.name);
    }
}

TEST(ClassTable, shouldKeepEachSharedEnglishHelpOnTheMembersThatUseIt) {
    const MemberInfo* font = NumInputBox::staticClassInfo().member(u"Font");
    ASSERT_NE(font, nullptr);
    EXPECT_EQ(font->helpEnglish, common::Font.helpEnglish);
    EXPECT_EQ(font->help, common::Font.help);
    const MemberInfo* errBase = NumInputBox::staticClassInfo().member(u"ErrBase");
    ASSERT_NE(errBase, nullptr);
    EXPECT_EQ(errBase->helpEnglish, u"Sets the base of the error numbers.");
}

// The published enumerations, name for name and value for value.
TEST(ClassTable, shouldDescribeEveryPublicEnumerationWithItsPublishedNamesAndValues) {
    std::vector<std::u16string> names;
    for (const EnumInfo* e : publicEnumerations()) names.push_back(e->name);
    EXPECT_EQ(names, (std::vector<std::u16string>{
                         u"CorvexIMEMode", u"InputMode", u"CheckExistsMode", u"MultiOptionBorder",
                         u"ScrollBarsMode", u"ShadowedLine_Mode", u"OpenOrSaveMode",
                         u"MsgBoxControlButtonType", u"MsgBoxControlIconType",
                         u"MsgBoxControlDefaultButtonType", u"MsgBoxControlModalType",
                         u"MsgBoxControlAnswer", u"CorvexComDlg"}));
    const EnumInfo& ime = enumInfo<CorvexIMEMode>();
    ASSERT_EQ(ime.members.size(), 9u);
    EXPECT_EQ(ime.members[3],
              (std::pair<std::u16string, std::int32_t>{
                  u"IMEDisable", static_cast<std::int32_t>(CorvexIMEMode::IMEDisable)}));
    EXPECT_EQ(ime.nameOf(8), u"IMEAlpha");
    const EnumInfo& mode = enumInfo<InputMode>();
    EXPECT_EQ(mode.nameOf(static_cast<std::int32_t>(InputMode::PM_decimal)), u"PM_decimal");
    EXPECT_EQ(mode.nameOf(static_cast<std::int32_t>(InputMode::P_decimal)), u"P_decimal");
    EXPECT_EQ(mode.nameOf(static_cast<std::int32_t>(InputMode::PM_Integer)), u"PM_Integer");
    EXPECT_EQ(mode.nameOf(static_cast<std::int32_t>(InputMode::P_Integer)), u"P_Integer");
    EXPECT_EQ(mode.nameOf(static_cast<std::int32_t>(InputMode::Free)), u"Free");
    EXPECT_EQ(mode.nameOf(5), u"") << "no member has 5";
    const EnumInfo& bars = enumInfo<ScrollBarsMode>();
    EXPECT_EQ(bars.nameOf(static_cast<std::int32_t>(ScrollBarsMode::barNone)), u"barNone");
    EXPECT_EQ(bars.nameOf(static_cast<std::int32_t>(ScrollBarsMode::barHorizontal)),
              u"barHorizontal");
    EXPECT_EQ(bars.nameOf(static_cast<std::int32_t>(ScrollBarsMode::barVertical)), u"barVertical");
    EXPECT_EQ(bars.nameOf(static_cast<std::int32_t>(ScrollBarsMode::barBoth)), u"barBoth");
    const EnumInfo& exists = enumInfo<CheckExistsMode>();
    EXPECT_EQ(exists.members,
              (std::vector<std::pair<std::u16string, std::int32_t>>{
                  {u"NoCheck", 0}, {u"FileOnly", 1}, {u"FolderOnly", 2}, {u"FileAndFolder", 3}}));
}

// Every event interface as published: names in dispatch order, numbered from 1.
TEST(ClassTable, shouldNumberEveryEventInterfaceAsPublished) {
    using Names = std::vector<std::u16string>;
    const Names lifecycle = {u"InitProperties", u"ReadProperties", u"WriteProperties"};
    const auto with = [&](Names names, const Names& more) {
        names.insert(names.end(), more.begin(), more.end());
        return names;
    };
    const Names text = {u"Change", u"Click",     u"DblClick",  u"KeyDown", u"KeyPress",
                        u"KeyUp",  u"MouseDown", u"MouseMove", u"MouseUp"};
    const Names list = {u"Click", u"DblClick",  u"KeyDown",   u"KeyPress",
                        u"KeyUp", u"MouseDown", u"MouseMove", u"MouseUp"};
    const std::map<std::u16string, Names> expected = {
        {u"BooleanBox", with({u"DblClick", u"Click", u"KeyDown", u"KeyPress", u"KeyUp",
                              u"MouseDown", u"MouseMove", u"MouseUp", u"Resize"},
                             lifecycle)},
        {u"NumInputBox", with(text, lifecycle)},
        {u"NumInputBoxR", with(text, lifecycle)},
        {u"MemoBox", with(text, lifecycle)},
        {u"MultiOption", with(text, lifecycle)},
        {u"FileNameBox", with(with(text, {u"OLEDragDrop"}), lifecycle)},
        {u"DropDownCombo", with(with(text, {u"Scroll"}), lifecycle)},
        {u"DropDownList", with(with(text, {u"Scroll"}), lifecycle)},
        {u"ListBoxEx", with(with(list, {u"ItemCheck"}), lifecycle)},
        {u"SingleOption", with(list, lifecycle)},
        {u"FileDialogBox", lifecycle},
        {u"FormHandle", lifecycle},
        {u"MessageBox", lifecycle},
        {u"MoveList", lifecycle},
        {u"ShadowedLine", lifecycle},
        {u"SettingHandle", {}},
        {u"ppgFILEDLG1", {}},
        {u"ppgFILEDLG2", {}},
        {u"ppgFILEDLG3", {}},
        {u"ppgFILEDLG4", {}},
        {u"ppgMSGBOX", {}}};
    ASSERT_EQ(expected.size(), publicClasses().size());
    for (const ClassInfo* c : publicClasses()) {
        const auto it = expected.find(c->name());
        ASSERT_NE(it, expected.end()) << toUtf8(c->name());
        Names names;
        for (std::size_t i = 0; i < c->events().size(); ++i) {
            names.push_back(c->events()[i].name);
            EXPECT_EQ(c->events()[i].dispId, static_cast<int>(i) + 1) << toUtf8(c->name());
        }
        EXPECT_EQ(names, it->second) << toUtf8(c->name());
        // The last three are declared and never raised.
        for (std::size_t i = names.size() >= 3 ? names.size() - 3 : 0; i < names.size(); ++i) {
            EXPECT_FALSE(c->events()[i].raised) << toUtf8(c->name() + u"." + names[i]);
        }
    }
}

TEST(ClassTable, shouldPublishTheClassesInTheirOrderWithTheirKinds) {
    std::vector<std::pair<std::u16string, ClassKind>> classes;
    for (const ClassInfo* c : publicClasses()) classes.emplace_back(c->name(), c->kind());
    using K = ClassKind;
    EXPECT_EQ(classes,
              (std::vector<std::pair<std::u16string, ClassKind>>{
                  {u"BooleanBox", K::Control},        {u"NumInputBox", K::Control},
                  {u"NumInputBoxR", K::Control},      {u"MemoBox", K::Control},
                  {u"FileNameBox", K::Control},       {u"FileDialogBox", K::ServiceControl},
                  {u"DropDownCombo", K::Control},     {u"DropDownList", K::Control},
                  {u"ListBoxEx", K::Control},         {u"MoveList", K::Control},
                  {u"MultiOption", K::Control},       {u"SingleOption", K::Control},
                  {u"ShadowedLine", K::Control},      {u"SettingHandle", K::ServiceControl},
                  {u"FormHandle", K::ServiceControl}, {u"MessageBox", K::ServiceControl},
                  {u"ppgFILEDLG1", K::PropertyPage},  {u"ppgFILEDLG2", K::PropertyPage},
                  {u"ppgFILEDLG3", K::PropertyPage},  {u"ppgFILEDLG4", K::PropertyPage},
                  {u"ppgMSGBOX", K::PropertyPage}}));
    EXPECT_EQ(findClass(u"frmFILEDLG"), nullptr) << "the notes form stays the library's own";
}

// All 88 common-dialog constants, in their published order, with the two values that
// share a number (cdlHelpContents and cdlHelpIndex, cdlHelpSetContents and cdlHelpSetIndex).
TEST(ClassTable, shouldPublishEveryCommonDialogConstantInOrderWithItsValue) {
    const std::vector<std::pair<std::u16string, std::int32_t>> expected = {
        {u"cdlOFNAllowMultiselect", 512},
        {u"cdlOFNCreatePrompt", 8192},
        {u"cdlOFNExtensionDifferentt", 1024},
        {u"cdlOFNFileMustExist", 4096},
        {u"cdlOFNHideReadOnly", 4},
        {u"cdlOFNNoChangeDir", 8},
        {u"cdlOFNNoReadOnlyReturn", 32768},
        {u"cdlOFNNoValidate", 256},
        {u"cdlOFNOverwritePrompt", 2},
        {u"cdlOFNPathMustExist", 2048},
        {u"cdlOFNReadOnly", 1},
        {u"cdlOFNShareAware", 16384},
        {u"cdlOFNHelpButton", 16},
        {u"cdlOFNExplorer", 524288},
        {u"cdlOFNNoDereferenceLinks", 1048576},
        {u"cdlOFNLongNames", 2097152},
        {u"cdlOFNNoLongNames", 262144},
        {u"cdlCFANSIOnly", 1024},
        {u"cdlCFBoth", 3},
        {u"cdlCFEffects", 256},
        {u"cdlCFFixedPitchOnly", 16384},
        {u"cdlCFForceFontExist", 65536},
        {u"cdlCFLimitSize", 8192},
        {u"cdlCFNoSimulations", 4096},
        {u"cdlCFNoVectorFonts", 2048},
        {u"cdlCFPrinterFonts", 2},
        {u"cdlCFScalableOnly", 131072},
        {u"cdlCFScreenFonts", 1},
        {u"cdlCFHelpButton", 4},
        {u"cdlCFTTOnly", 262144},
        {u"cdlCFWYSIWYG", 32768},
        {u"cdlPDAllPages", 0},
        {u"cdlPDCollate", 16},
        {u"cdlPDDisablePrintToFile", 524288},
        {u"cdlPDHidePrintToFile", 1048576},
        {u"cdlPDNoPageNums", 8},
        {u"cdlPDNoSelection", 4},
        {u"cdlPDNoWarning", 128},
        {u"cdlPDPageNums", 2},
        {u"cdlPDPrintSetup", 64},
        {u"cdlPDPrintToFile", 32},
        {u"cdlPDReturnDC", 256},
        {u"cdlPDReturnIC", 512},
        {u"cdlPDReturnDefault", 1024},
        {u"cdlPDSelection", 1},
        {u"cdlPDHelpButton", 2048},
        {u"cdlPDUseDevModeCopies", 262144},
        {u"cdlCCFullOpen", 2},
        {u"cdlCCPreventFullOpen", 4},
        {u"cdlCCRGBInit", 1},
        {u"cdlCCShowHelp", 8},
        {u"cdlHelpCommand", 258},
        {u"cdlHelpContents", 3},
        {u"cdlHelpContext", 1},
        {u"cdlHelpContextPopup", 8},
        {u"cdlHelpForceFile", 9},
        {u"cdlHelpOnHelp", 4},
        {u"cdlHelpIndex", 3},
        {u"cdlHelpKey", 257},
        {u"cdlHelpPartialKey", 261},
        {u"cdlHelpQuit", 2},
        {u"cdlHelpSetContents", 5},
        {u"cdlHelpSetIndex", 5},
        {u"cdlAlloc", 32752},
        {u"cdlCancel", 32755},
        {u"cdlDialogFailure", -32768},
        {u"cdlFindResFailure", 32761},
        {u"cdlHelp", 32751},
        {u"cdlInitialization", 32765},
        {u"cdlLoadResFailure", 32760},
        {u"cdlLockResFailure", 32759},
        {u"cdlMemAllocFailure", 32758},
        {u"cdlMemLockFailure", 32757},
        {u"cdlNoFonts", 24574},
        {u"cdlBufferTooSmall", 20476},
        {u"cdlInvalidFileName", 20477},
        {u"cdlSubclassFailure", 20478},
        {u"cdlCreateICFailure", 28661},
        {u"cdlDndmMismatch", 28662},
        {u"cdlGetDevModeFail", 28666},
        {u"cdlInitFailure", 28665},
        {u"cdlLoadDrvFailure", 28667},
        {u"cdlLoadStrFailure", 32762},
        {u"cdlNoDefaultPrn", 28663},
        {u"cdlNoDevices", 28664},
        {u"cdlParseFailure", 28669},
        {u"cdlPrinterNotFound", 28660},
        {u"cdlRetDefFailure", 28668},
    };
    EXPECT_EQ(expected.size(), 88u);
    EXPECT_EQ(enumInfo<CorvexComDlg>().members, expected);
    EXPECT_EQ(static_cast<std::int32_t>(CorvexComDlg::cdlOFNExtensionDifferentt), 1024);
    EXPECT_EQ(static_cast<std::int32_t>(CorvexComDlg::cdlDialogFailure), -32768);
    EXPECT_EQ(enumInfo<CorvexComDlg>().nameOf(32755), u"cdlCancel");
}

TEST(ClassTable, shouldNameTheEnumerationOfEveryEnumeratedPropertyAndMethodResult) {
    std::map<std::u16string, const EnumInfo*> expected = {
        {u"IMEMode", &enumInfo<CorvexIMEMode>()},
        {u"Mode", &enumInfo<InputMode>()},
        {u"ScrollBars", &enumInfo<ScrollBarsMode>()},
        {u"MessageBox.Answer", &enumInfo<MsgBoxControlAnswer>()},
        {u"MessageBox.ButtonType", &enumInfo<MsgBoxControlButtonType>()},
        {u"MessageBox.DefaultButtonType", &enumInfo<MsgBoxControlDefaultButtonType>()},
        {u"MessageBox.IconType", &enumInfo<MsgBoxControlIconType>()},
        {u"MessageBox.ModalType", &enumInfo<MsgBoxControlModalType>()},
        {u"MessageBox.Value", &enumInfo<MsgBoxControlAnswer>()},
        {u"MessageBox.Show", &enumInfo<MsgBoxControlAnswer>()},
        {u"FileNameBox.Mode", &enumInfo<CheckExistsMode>()},
        {u"BorderStyle", &enumInfo<MultiOptionBorder>()},
        {u"ShadowedLine.Mode", &enumInfo<ShadowedLine_Mode>()},
        {u"FileDialogBox.Mode", &enumInfo<OpenOrSaveMode>()}};
    for (const ClassInfo* c : publicClasses()) {
        for (const auto& m : c->members()) {
            auto it = expected.find(c->name() + u"." + m.name);
            if (it == expected.end()) it = expected.find(m.name);
            EXPECT_EQ(m.enumeration, it == expected.end() ? nullptr : it->second) << nameOf(*c, m);
            if (m.enumeration) {
                EXPECT_EQ(m.type, VarType::Long) << nameOf(*c, m);
            }
        }
    }
}

TEST(ClassTable, shouldMarkOnlyDefaultValueAsDesignTimeOnly) {
    for (const ClassInfo* c : publicClasses()) {
        for (const auto& m : c->members()) {
            EXPECT_EQ(m.designTimeOnly, m.name == u"DefaultValue") << nameOf(*c, m);
        }
    }
}

TEST(ClassTable, shouldPlaceEverySavedPropertyOnceInTheWriteAndTheReadOrder) {
    for (const ClassInfo* c : publicClasses()) {
        const auto written = c->savedInWriteOrder();
        const auto read = c->savedInReadOrder();
        // Only visible controls are sure to save something; FormHandle and the pages do not.
        if (c->kind() == ClassKind::Control) {
            ASSERT_FALSE(written.empty()) << toUtf8(c->name());
        }
        for (std::size_t i = 0; i < written.size(); ++i) {
            EXPECT_EQ(written[i]->saved->writeOrder, static_cast<int>(i) + 1)
                << nameOf(*c, *written[i]);
            EXPECT_EQ(read[i]->saved->readOrder, static_cast<int>(i) + 1) << nameOf(*c, *read[i]);
            // MessageBox saves its two answers, which no caller can set.
            const bool readOnly = c->name() == u"MessageBox" &&
                                  (written[i]->name == u"Answer" || written[i]->name == u"Value");
            EXPECT_EQ(written[i]->writable(), !readOnly) << nameOf(*c, *written[i]);
            EXPECT_TRUE(written[i]->readable()) << nameOf(*c, *written[i]);
        }
    }
}

std::vector<std::u16string> writeNames(const ClassInfo& c) {
    std::vector<std::u16string> out;
    for (const MemberInfo* m : c.savedInWriteOrder()) out.push_back(m->saved->writeName);
    return out;
}

std::vector<std::u16string> readNames(const ClassInfo& c) {
    std::vector<std::u16string> out;
    for (const MemberInfo* m : c.savedInReadOrder()) out.push_back(m->saved->readName);
    return out;
}

TEST(ClassTable, shouldListTheSavedPropertiesOfEachClassInTheirDocumentedOrder) {
    EXPECT_EQ(writeNames(BooleanBox::staticClassInfo()),
              (std::vector<std::u16string>{u"BackColor", u"Caption", u"Enabled", u"ForeColor",
                                           u"Font", u"AlwaysFalseWhenNotEnabled", u"DefaultValue",
                                           u"KeyName", u"SectionName"}));
    const std::vector<std::u16string> numeric = {
        u"BackColor",      u"Enabled",     u"ForeColor",    u"IMEMode",
        u"Font",           u"MaxLength",   u"DefaultValue", u"KeyName",
        u"LimitCheck",     u"LowerLimit",  u"Mode",         u"MustEnter",
        u"MustEnterColor", u"SectionName", u"UpperLimit",   u"ValidateAtLostFocus",
        u"ErrBase"};
    EXPECT_EQ(writeNames(NumInputBox::staticClassInfo()), numeric);
    EXPECT_EQ(readNames(NumInputBox::staticClassInfo()), numeric);
    EXPECT_EQ(writeNames(NumInputBoxR::staticClassInfo()), numeric);
    EXPECT_EQ(
        writeNames(MemoBox::staticClassInfo()),
        (std::vector<std::u16string>{u"BackColor", u"Enabled", u"Font", u"ForeColor", u"IMEMode",
                                     u"ScrollBars", u"DefaultValue", u"KeyName", u"SectionName"}));
    EXPECT_EQ(
        readNames(MemoBox::staticClassInfo()),
        (std::vector<std::u16string>{u"BackColor", u"Enabled", u"ForeColor", u"IMEMode", u"Font",
                                     u"Scrollbars", u"DefaultValue", u"KeyName", u"SectionName"}));
    for (const ClassInfo* list :
         {&DropDownCombo::staticClassInfo(), &DropDownList::staticClassInfo()}) {
        EXPECT_EQ(writeNames(*list),
                  (std::vector<std::u16string>{
                      u"BackColor", u"Enabled", u"ForeColor", u"Font", u"IMEMode", u"Locked",
                      u"DefaultValue", u"ItemdataNums", u"KeyName", u"ListTexts", u"SectionName"}));
        EXPECT_EQ(readNames(*list),
                  (std::vector<std::u16string>{u"BackColor", u"ForeColor", u"Enabled", u"IMEMode",
                                               u"Locked", u"Font", u"DefaultValue", u"ItemDataNums",
                                               u"KeyName", u"ListTexts", u"SectionName"}));
    }
    EXPECT_EQ(
        writeNames(ListBoxEx::staticClassInfo()),
        (std::vector<std::u16string>{u"BackColor", u"Enabled", u"Font", u"ForeColor", u"IMEMode",
                                     u"AutoRefreshScrollBar", u"DefaultValue", u"ItemdataNums",
                                     u"KeyName", u"ListTexts", u"SectionName"}));
    EXPECT_EQ(
        readNames(ListBoxEx::staticClassInfo()),
        (std::vector<std::u16string>{u"BackColor", u"Enabled", u"ForeColor", u"IMEMode", u"Font",
                                     u"AutoRefreshScrollBar", u"DefaultValue", u"ItemDataNums",
                                     u"KeyName", u"ListTexts", u"SectionName"}));
}

TEST(ClassTable, shouldSayWhereTheReadNameDiffersFromTheWrittenOne) {
    for (const ClassInfo* c : publicClasses()) {
        for (const auto& m : c->members()) {
            if (!m.saved) continue;
            const bool odd = c->name() == u"MemoBox" && m.name == u"ScrollBars";
            // The list controls write their item data text with a lower-case d.
            const bool oddWrite = (c->name() == u"DropDownCombo" || c->name() == u"DropDownList" ||
                                   c->name() == u"ListBoxEx") &&
                                  m.name == u"ItemDataNums";
            EXPECT_EQ(m.saved->readName == m.saved->writeName, !odd && !oddWrite) << nameOf(*c, m);
            EXPECT_EQ(oddWrite ? m.saved->readName : m.saved->writeName, m.name)
                << "saved names equal member names";
        }
    }
}

TEST(ClassTable, shouldDeclareTheFontDefaultAsTheAmbientFontAndNoOtherDefault) {
    FontDesc ambient;
    ambient.name = u"Ambient";
    for (const ClassInfo* c : publicClasses()) {
        for (const auto& m : c->members()) {
            if (!m.saved) continue;
            EXPECT_EQ(m.saved->ambientFont, m.type == VarType::Object) << nameOf(*c, m);
            const Variant def = m.saved->defaultFor(ambient);
            if (m.saved->ambientFont) {
                EXPECT_EQ(fontFromVariant(def).name, u"Ambient");
            } else {
                EXPECT_FALSE(def.isEmpty()) << nameOf(*c, m);
            }
        }
    }
}

TEST(ClassTable, shouldSaveTheDefaultsThatEachClassDocuments) {
    const auto def = [](const ClassInfo& c, const char16_t* name) {
        return c.member(name)->saved->defaultValue;
    };
    const ClassInfo& b = BooleanBox::staticClassInfo();
    EXPECT_EQ(def(b, u"BackColor"), Variant(color::ButtonFace));
    EXPECT_EQ(def(b, u"Caption"), Variant(u"chkBooleanBox"));
    EXPECT_EQ(def(b, u"DefaultValue"), Variant(false));
    const ClassInfo& n = NumInputBox::staticClassInfo();
    EXPECT_EQ(def(n, u"IMEMode"), Variant(std::int32_t{3}));
    EXPECT_EQ(def(n, u"Mode"), Variant(std::int16_t{0}));
    EXPECT_EQ(def(n, u"MustEnterColor"), Variant(std::int32_t{255}));
    EXPECT_EQ(def(n, u"ErrBase"), Variant(std::int32_t{-2147221504}));
    EXPECT_EQ(def(n, u"ValidateAtLostFocus"), Variant(true));
    const ClassInfo& m = MemoBox::staticClassInfo();
    EXPECT_EQ(def(m, u"IMEMode"), Variant(std::int16_t{0}));
    EXPECT_EQ(def(m, u"ScrollBars"), Variant(std::int32_t{0}));
}

TEST(ClassTable, shouldEndEveryEventInterfaceWithTheThreeNeverRaisedLifecycleEvents) {
    for (const ClassInfo* c : publicClasses()) {
        if (c->kind() == ClassKind::PropertyPage) continue;  // a page raises no events at all
        const auto& ev = c->events();
        // A service control without events (SettingHandle) declares an empty interface.
        if (ev.empty() && c->kind() == ClassKind::ServiceControl) continue;
        ASSERT_GE(ev.size(), 3u);
        const std::size_t n = ev.size();
        EXPECT_EQ(ev[n - 3].name, u"InitProperties");
        EXPECT_EQ(ev[n - 2].name, u"ReadProperties");
        EXPECT_EQ(ev[n - 1].name, u"WriteProperties");
        for (std::size_t i = n - 3; i < n; ++i) {
            EXPECT_FALSE(ev[i].raised) << toUtf8(c->name()) << "." << toUtf8(ev[i].name);
        }
    }
}

TEST(ClassTable, shouldPublishCanPropertyChangeArgumentAsAStringByReference) {
    const MemberInfo* m = MemoBox::staticClassInfo().member(u"CanPropertyChange");
    ASSERT_NE(m, nullptr);
    ASSERT_EQ(m->params.size(), 1u);
    EXPECT_EQ(m->params[0].type, VarType::String);
    EXPECT_TRUE(m->params[0].byRef);
    EXPECT_EQ(m->type, VarType::Boolean);
}

}  // namespace
