// The default interface of every public class lists its members in one fixed order: the
// order its published description gives them, one row per class below. Member numbers
// follow from it, so a reordered table would renumber what compiled clients call.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "corvex/common/text.h"
#include "corvex/library/class_table.h"

using namespace corvex;

namespace {

struct InterfaceRow {
    const char16_t* className;
    std::vector<std::u16string> members;
};

const std::vector<std::u16string> numInputBoxMembers = {u"Cls",
                                                        u"Refresh",
                                                        u"Restore",
                                                        u"RestoreDefault",
                                                        u"Store",
                                                        u"Cancel",
                                                        u"ValidateValue",
                                                        u"BackColor",
                                                        u"DefaultValue",
                                                        u"Enabled",
                                                        u"ErrFlag",
                                                        u"Font",
                                                        u"ForeColor",
                                                        u"IMEMode",
                                                        u"KeyName",
                                                        u"LimitCheck",
                                                        u"LowerLimit",
                                                        u"MaxLength",
                                                        u"Mode",
                                                        u"MustEnter",
                                                        u"MustEnterColor",
                                                        u"SectionName",
                                                        u"SelLength",
                                                        u"SelStart",
                                                        u"SelText",
                                                        u"Text",
                                                        u"UpperLimit",
                                                        u"ValDbl",
                                                        u"ValidateAtLostFocus",
                                                        u"ValInt",
                                                        u"ValLng",
                                                        u"ValSng",
                                                        u"Value",
                                                        u"ErrBase"};

const std::vector<std::u16string> dropDownMembers = {
    u"AddItem",        u"Clear",     u"Cls",       u"Refresh",      u"RemoveItem", u"Restore",
    u"RestoreDefault", u"Store",     u"BackColor", u"DefaultValue", u"Enabled",    u"Font",
    u"ForeColor",      u"IMEMode",   u"ItemData",  u"ItemDataNums", u"KeyName",    u"List",
    u"ListCount",      u"ListIndex", u"ListTexts", u"Locked",       u"NewIndex",   u"SectionName",
    u"SelLength",      u"SelStart",  u"SelText",   u"Sorted",       u"Text",       u"Value"};

// A row of a class's table that names several members at once stands for them in the
// order it names them, except where a class's note below says otherwise.
const std::vector<InterfaceRow>& interfaceRows() {
    static const std::vector<InterfaceRow> rows = {
        {u"BooleanBox",
         {u"Cls", u"Refresh", u"Restore", u"RestoreDefault", u"Store", u"BackColor", u"Caption",
          u"DefaultValue", u"Enabled", u"Font", u"ForeColor", u"KeyName", u"SectionName", u"Value",
          u"AlwaysFalseWhenNotEnabled"}},
        {u"NumInputBox", numInputBoxMembers},
        {u"NumInputBoxR", numInputBoxMembers},
        {u"MemoBox", {u"Cls",         u"Refresh",
                      u"Restore",     u"RestoreDefault",
                      u"Store",       u"CanPropertyChange",
                      u"BackColor",   u"DefaultValue",
                      u"Enabled",     u"Font",
                      u"ForeColor",   u"IMEMode",
                      u"KeyName",     u"ScrollBars",
                      u"SectionName", u"SelLength",
                      u"SelStart",    u"SelText",
                      u"Text",        u"Value"}},
        {u"FileNameBox", {u"Cls",           u"Refresh",
                          u"Restore",       u"RestoreDefault",
                          u"Store",         u"Cancel",
                          u"ValidateValue", u"BackColor",
                          u"DefaultValue",  u"Enabled",
                          u"FileBody",      u"FileDrive",
                          u"FileExtension", u"FileName",
                          u"FilePath",      u"FilePathBody",
                          u"FileTitle",     u"Font",
                          u"ForeColor",     u"IMEMode",
                          u"KeyName",       u"MaxLength",
                          u"MessageShow",   u"Mode",
                          u"SectionName",   u"SelLength",
                          u"SelStart",      u"SelText",
                          u"Text",          u"ValidateAtLostFocus",
                          u"Value",         u"ShortFileName",
                          u"LongFileName"}},
        {u"FileDialogBox",
         {u"Cls",
          u"ShowAbout",
          u"FileOpen",
          u"FileSave",
          u"ShowOpen",
          u"ShowSave",
          u"AllowMultiselect",
          u"CancelSelected",
          u"CreatePrompt",
          u"DefaultExt",
          u"DialogTitle",
          u"Explorer",
          u"FileMustExist",
          u"FileName",
          u"FileTitle",
          u"Filter",
          u"FilterIndex",
          u"Flags",
          u"hDC",
          u"HelpButton",
          u"HideReadOnly",
          u"hwnd",
          u"InitDir",
          u"LongNames",
          u"MaxFileSize",
          u"Mode",
          u"NoChangeDir",
          u"NoDereferenceLinks",
          u"NoLongNames",
          u"NoReadOnlyReturn",
          u"NoValidate",
          u"OverwritePrompt",
          u"PathMustExist",
          u"ReadOnly",
          u"ShareAware"}},
        {u"DropDownCombo", dropDownMembers},
        {u"DropDownList", dropDownMembers},
        // A row of the list box's table that names several members stands for them in the
        // order it names them ("ListCount, NewIndex, SelCount, Sorted, MultiSelect").
        {u"ListBoxEx",
         {u"AddItem",
          u"Clear",
          u"Cls",
          u"Refresh",
          u"RefreshScrollBar",
          u"RemoveItem",
          u"Restore",
          u"RestoreDefault",
          u"Store",
          u"AutoRefreshScrollBar",
          u"BackColor",
          u"Enabled",
          u"Font",
          u"ForeColor",
          u"IMEMode",
          u"Columns",
          u"DefaultValue",
          u"IntegralHeight",
          u"ItemData",
          u"ItemDataNums",
          u"KeyName",
          u"SectionName",
          u"List",
          u"ListCount",
          u"NewIndex",
          u"SelCount",
          u"Sorted",
          u"MultiSelect",
          u"ListIndex",
          u"Value",
          u"ListTexts",
          u"Selected",
          u"Text",
          u"TopIndex"}},
        {u"MoveList",
         {u"LAddItem",   u"LRemoveItem", u"LClear",     u"LList",       u"LListIndex", u"LSelCount",
          u"LListCount", u"LSelected",   u"RAddItem",   u"RRemoveItem", u"RClear",     u"RList",
          u"RListIndex", u"RSelCount",   u"RListCount", u"RSelected",   u"LItemData",  u"RItemData",
          u"Clear",      u"ListFont",    u"ButtonFont", u"LSort",       u"RSort",      u"Sort",
          u"LSorted",    u"RSorted",     u"LAddArray",  u"RAddArray"}},
        {u"MultiOption",
         {u"Cls",
          u"Refresh",
          u"Restore",
          u"RestoreDefault",
          u"Store",
          u"BackColor",
          u"BorderStyle",
          u"Caption",
          u"CaptionColor",
          u"CaptionFont",
          u"DefaultValue",
          u"Enabled",
          u"HoriSpace",
          u"KeyName",
          u"OptionBackColor",
          u"OptionCaptions",
          u"OptionFont",
          u"OptionForeColor",
          u"OptionHeight",
          u"OptionLeft",
          u"OptionNum",
          u"OptionNumPerLine",
          u"OptionTop",
          u"OptionWidth",
          u"SectionName",
          u"Value",
          u"VartSpace"}},
        {u"SingleOption",
         {u"Cls", u"Refresh", u"Restore", u"RestoreDefault", u"Store", u"BackColor", u"Caption",
          u"Enabled", u"Font", u"ForeColor", u"DefaultValue", u"KeyName", u"SectionName",
          u"Value"}},
        {u"ShadowedLine", {u"Mode", u"X1", u"X2", u"Y1", u"Y2"}},
        {u"SettingHandle",
         {u"GetAControlFromRegistry", u"GetControlsFromIni", u"GetControlsFromRegistry",
          u"SaveAControlToIni", u"SaveAControlToRegistry", u"SaveControlsToIni",
          u"SaveControlsToRegistry", u"SaveIni", u"SaveRegistry", u"GetIni", u"GetRegistry",
          u"AppName", u"IniFileName"}},
        {u"FormHandle", {u"SetFormTop", u"SetFormCenter", u"MoveInScreen"}},
        {u"MessageBox",
         {u"Answer", u"ButtonType", u"DefaultButtonType", u"HelpButton", u"HelpContext",
          u"HelpFile", u"IconType", u"ModalType", u"Prompt", u"SetForeGround", u"TextRight",
          u"Title", u"Value", u"Show"}},
        // The property pages publish no members of their own.
        {u"ppgFILEDLG1", {}},
        {u"ppgFILEDLG2", {}},
        {u"ppgFILEDLG3", {}},
        {u"ppgFILEDLG4", {}},
        {u"ppgMSGBOX", {}},
    };
    return rows;
}

std::vector<std::u16string> memberNames(const ClassInfo& cls) {
    std::vector<std::u16string> names;
    for (const MemberInfo& m : cls.members()) names.push_back(m.name);
    return names;
}

std::string joined(const std::vector<std::u16string>& names) {
    std::string out;
    for (const auto& n : names) out += (out.empty() ? "" : " ") + toUtf8(n);
    return out;
}

TEST(InterfaceOrder, shouldListEveryPublicClassInTheTable) {
    ASSERT_EQ(interfaceRows().size(), publicClasses().size());
    for (std::size_t i = 0; i < publicClasses().size(); ++i) {
        EXPECT_EQ(publicClasses()[i]->name(), interfaceRows()[i].className);
    }
}

TEST(InterfaceOrder, shouldDeclareEveryClassMembersInItsPublishedOrder) {
    for (const InterfaceRow& row : interfaceRows()) {
        const ClassInfo* cls = findClass(row.className);
        ASSERT_NE(cls, nullptr) << toUtf8(row.className);
        EXPECT_EQ(joined(memberNames(*cls)), joined(row.members)) << toUtf8(row.className);
    }
}

TEST(InterfaceOrder, shouldNumberEachMemberByItsPlaceInThePublishedOrder) {
    for (const InterfaceRow& row : interfaceRows()) {
        const ClassInfo* cls = findClass(row.className);
        ASSERT_NE(cls, nullptr) << toUtf8(row.className);
        for (std::size_t i = 0; i < row.members.size(); ++i) {
            const MemberInfo* m = cls->member(row.members[i]);
            ASSERT_NE(m, nullptr) << toUtf8(row.className) << "." << toUtf8(row.members[i]);
            EXPECT_EQ(m->dispId, static_cast<int>(i) + 1)
                << toUtf8(row.className) << "." << toUtf8(row.members[i]);
        }
    }
}

}  // namespace
