#include "corvex/library/class_table.h"

#include "corvex/common/boolean_box.h"
#include "corvex/common/error.h"
#include "corvex/common/text.h"
#include "corvex/entry/memo_box.h"
#include "corvex/entry/num_input_box.h"
#include "corvex/files/file_dialog_box.h"
#include "corvex/files/file_name_box.h"
#include "corvex/files/filedlg_pages.h"
#include "corvex/lists/drop_down_combo.h"
#include "corvex/lists/list_box_ex.h"
#include "corvex/lists/move_list.h"
#include "corvex/options/multi_option.h"
#include "corvex/options/shadowed_line.h"
#include "corvex/options/single_option.h"
#include "corvex/services/form_handle.h"
#include "corvex/services/message_box.h"
#include "corvex/services/msgbox_page.h"
#include "corvex/services/setting_handle.h"

namespace corvex {

const std::vector<const ClassInfo*>& publicClasses() {
    // In the order the library publishes them: the controls, the service controls, the
    // property pages. One class a line, so that classes added side by side merge line by line.
    // clang-format off
    static const std::vector<const ClassInfo*> classes = {
        &BooleanBox::staticClassInfo(),
        &NumInputBox::staticClassInfo(),
        &NumInputBoxR::staticClassInfo(),
        &MemoBox::staticClassInfo(),
        &FileNameBox::staticClassInfo(),
        &FileDialogBox::staticClassInfo(),
        &DropDownCombo::staticClassInfo(),
        &DropDownList::staticClassInfo(),
        &ListBoxEx::staticClassInfo(),
        &MoveList::staticClassInfo(),
        &MultiOption::staticClassInfo(),
        &SingleOption::staticClassInfo(),
        &ShadowedLine::staticClassInfo(),
        &SettingHandle::staticClassInfo(),
        &FormHandle::staticClassInfo(),
        &MessageBox::staticClassInfo(),
        &FileDialogPage1::staticClassInfo(),
        &FileDialogPage2::staticClassInfo(),
        &FileDialogPage3::staticClassInfo(),
        &FileDialogPage4::staticClassInfo(),
        &MsgBoxPage::staticClassInfo(),
    };
    // clang-format on
    return classes;
}

const char* classKindWord(ClassKind kind) {
    switch (kind) {
        case ClassKind::ServiceControl:
            return "service";
        case ClassKind::PropertyPage:
            return "page";
        default:
            return "control";
    }
}

const ClassInfo* findClass(std::u16string_view name) {
    for (const ClassInfo* c : publicClasses()) {
        if (equalsIgnoringCase(c->name(), name)) return c;
    }
    return nullptr;
}

std::vector<const ClassInfo*> propertyPagesOf(const ClassInfo& cls) {
    std::vector<const ClassInfo*> pages;
    for (const std::u16string& name : cls.propertyPages()) {
        const ClassInfo* page = findClass(name);
        if (!page || page->kind() != ClassKind::PropertyPage) {
            throw Error(err::MemberNotFound,
                        cls.name() + u" names " + name + u", which is not a public property page");
        }
        pages.push_back(page);
    }
    return pages;
}

}  // namespace corvex
