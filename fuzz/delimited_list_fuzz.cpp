// Feeds arbitrary texts to the delimited-list rules and checks that they never crash and
// agree with themselves: the elements joined again split to the same elements, the rebuild
// holds exactly the elements, and applying item data sets only what it reports. The same
// texts then go to a ListBoxEx on the headless host: its rebuild measures every element and
// its extent follows the widest, and a removal leaves the widest of the rest.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "corvex/common/error.h"
#include "corvex/headless/host.h"
#include "corvex/lists/delimited_list.h"
#include "corvex/lists/list_box_ex.h"
#include "corvex/platform/list_box.h"
#include "fuzz_input.h"

namespace {

using corvex::lists::ListTarget;

struct MemoryList : ListTarget {
    std::vector<std::u16string> texts;
    std::vector<std::int32_t> data;
    void clear() override {
        texts.clear();
        data.clear();
    }
    void addItem(const std::u16string& t) override {
        texts.push_back(t);
        data.push_back(0);
    }
    std::int32_t listCount() const override { return static_cast<std::int32_t>(texts.size()); }
    void setItemData(std::int32_t i, std::int32_t v) override { data.at(i) = v; }
    void setListText(std::int32_t i, const std::u16string& t) override { texts.at(i) = t; }
};

// A text mostly of delimiters, digits, letters and blanks, with any unit now and then.
std::u16string readText(corvex::fuzz::Input& in) {
    static const char16_t pool[] = u"||||0123456789a -+.";
    std::u16string text;
    const std::size_t length = in.byte() % 48;
    for (std::size_t i = 0; i < length && in.more(); ++i) text.push_back(in.character(pool, 224));
    return text;
}

void checkSplit(const std::u16string& text) {
    const std::vector<std::u16string> elements = corvex::lists::split(text);
    if (elements.empty()) std::abort();
    std::u16string joined;
    for (std::size_t i = 0; i < elements.size(); ++i) {
        // Only the last element may be empty, and no element holds a delimiter.
        if (elements[i].empty() && i + 1 != elements.size()) std::abort();
        if (elements[i].find(u'|') != std::u16string::npos) std::abort();
        joined += elements[i];
        if (i + 1 != elements.size()) joined += u'|';
    }
    if (corvex::lists::split(joined) != elements) std::abort();
}

void checkApply(MemoryList& list, const std::u16string& nums) {
    const std::vector<std::int32_t> before = list.data;
    int outcome = 0;
    try {
        outcome = corvex::lists::applyItemData(list, nums);
    } catch (const corvex::Error& e) {
        if (e.number() != corvex::err::SubscriptOutOfRange && e.number() != corvex::err::Overflow) {
            std::abort();
        }
        return;
    }
    if (outcome != 0 && outcome != corvex::lists::msg::IrregularString) std::abort();
    if (nums.empty() && list.data != before) std::abort();
    // Text of digits and delimiters with enough elements for every item applies whole
    // unless an element is empty.
    if (list.data.size() != list.texts.size()) std::abort();
}

// The headless width of an item: every unit and the terminator at the fixed advance.
std::int32_t widthOf(const std::u16string& text) {
    return static_cast<std::int32_t>(text.size() + 1) * corvex::kFixedAdvance;
}

std::int32_t widestOf(corvex::ListBoxEx& c) {
    std::int32_t widest = 0;
    for (std::int16_t i = 0; i < c.listCount(); ++i) widest = std::max(widest, widthOf(c.list(i)));
    return widest;
}

void checkListBoxEx(corvex::fuzz::Input& in, const std::u16string& listTexts,
                    const std::u16string& nums) {
    corvex::headless::Host host;
    host.setUserMode(false);
    corvex::headless::HeadlessForm form(host);
    corvex::headless::Site& site = form.add(corvex::ListBoxEx::staticClassInfo(), u"lst");
    auto& c = dynamic_cast<corvex::ListBoxEx&>(site.control());
    auto& inner = dynamic_cast<corvex::ListBox&>(*site.widget(u"lstListBoxEx"));
    c.setAutoRefreshScrollBar(in.byte() % 4 != 0);
    try {
        c.setListTexts(listTexts);
    } catch (const corvex::Error& e) {
        if (e.number() != corvex::err::Overflow) std::abort();
        return;
    }
    const std::vector<std::u16string> elements =
        listTexts.empty() ? std::vector<std::u16string>{} : corvex::lists::split(listTexts);
    if (c.listCount() != static_cast<std::int16_t>(elements.size())) std::abort();
    // A fresh control's widest item is the widest element; the extent shows it only when
    // the refresh is automatic and the list is narrower.
    if (c.widestItem() != widestOf(c)) std::abort();
    const double listPixels = inner.width() / host.twipsPerPixelY();
    const std::int32_t expected =
        c.autoRefreshScrollBar() && listPixels < c.widestItem() ? c.widestItem() : 0;
    if (inner.horizontalExtent() != expected) std::abort();
    try {
        c.setItemDataNums(nums);
    } catch (const corvex::Error& e) {
        if (e.number() != corvex::err::SubscriptOutOfRange && e.number() != corvex::err::Overflow) {
            std::abort();
        }
    }
    if (c.listCount() > 0) {
        const std::int16_t index = static_cast<std::int16_t>(in.byte() % c.listCount());
        const bool wasWidest = widthOf(c.list(index)) >= c.widestItem();
        const std::int32_t before = c.widestItem();
        c.removeItem(index);
        if (c.widestItem() != (wasWidest ? widestOf(c) : before)) std::abort();
    }
    c.clear();
    if (c.widestItem() != 0 || inner.horizontalExtent() != 0) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    corvex::fuzz::Input in{data, size};
    const std::u16string listTexts = readText(in);
    const std::u16string nums = readText(in);
    checkSplit(listTexts);
    checkSplit(nums);

    MemoryList list;
    corvex::lists::rebuild(list, listTexts);
    if (listTexts.empty() ? !list.texts.empty() : list.texts != corvex::lists::split(listTexts)) {
        std::abort();
    }
    if (corvex::lists::itemDataCharactersAllowed(nums)) {
        for (const char16_t c : nums) {
            if (c != u'|' && (c < u'0' || c > u'9')) std::abort();
        }
    }
    checkApply(list, nums);

    const std::int32_t index = in.small();
    const int refusal = corvex::lists::checkDefaultValue(index, list.listCount());
    if ((refusal == 0) != (index >= -1 && index < list.listCount())) std::abort();

    checkListBoxEx(in, listTexts, nums);
    return 0;
}
