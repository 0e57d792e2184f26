// Every public class of the class table, on every host the test program offers: created,
// every readable member read, saved and loaded; and the table's saved properties checked
// against what the class's own save and load code does.
#include <gtest/gtest.h>

#include <algorithm>

#include "corvex/common/font.h"
#include "corvex/common/text.h"
#include "corvex/library/class_table.h"
#include "corvex/library/memory_bag.h"
#include "support/harness.h"

using namespace corvex;
using corvex::testing::Harness;
using corvex::testing::HarnessMaker;

namespace {

// Each test runs for every class it names on every host.
using Case = corvex::testing::ClassOnHost;

std::vector<Case> cases() {
    return corvex::testing::classesOnHosts(publicClasses());
}

// A bag that remembers the names it was asked for, in order.
class RecordingBag : public PropertyBag {
public:
    explicit RecordingBag(const MemoryBag& inner) : inner_(inner) {}
    Variant read(std::u16string_view name, const Variant& def) override {
        reads.emplace_back(name);
        return inner_.read(name, def);
    }
    void write(std::u16string_view name, const Variant& value, const Variant& def) override {
        inner_.write(name, value, def);
    }
    std::vector<std::u16string> reads;

private:
    MemoryBag inner_;
};

std::vector<std::u16string> entryNames(const MemoryBag& bag) {
    std::vector<std::u16string> names;
    for (const auto& e : bag.entries()) names.push_back(e.first);
    return names;
}

// The values a test tries, in turn, for a saved property, none equal to its default; a
// let that a property check refuses (a lower limit above the upper one) leaves the value
// alone, and the next candidate is tried.
std::vector<Variant> candidates(const MemberInfo& m, const Variant& current) {
    if (m.enumeration) {
        std::vector<Variant> out;
        for (const auto& [name, value] : m.enumeration->members) {
            if (!hostEquals(Variant(value), current)) out.emplace_back(value);
        }
        return out;
    }
    switch (m.type) {
        case VarType::Boolean:
            return {Variant(!current.toBoolean())};
        case VarType::Integer:
            return {Variant(static_cast<std::int16_t>(current.toInteger() + 7))};
        case VarType::Long:
            return {Variant(std::int32_t{0x123456}), Variant(std::int32_t{0x654321})};
        case VarType::Single:
        case VarType::Double:
            return {Variant(2.5), Variant(-1.5)};
        case VarType::String:
            // Digits for a text that takes only digits (a list's item data).
            return {Variant(current.toString() + u"x1"), Variant(current.toString() + u"1")};
        case VarType::Object: {
            FontDesc f = fontFromVariant(current);
            f.size += 3;
            f.bold = !f.bold;
            f.weight = f.bold ? 700 : 400;
            return {Variant(ObjectRef(Font::make(f)))};
        }
        case VarType::Empty:
            break;
    }
    return {};
}

// Saved properties that no caller can set (MessageBox's answers) keep their defaults here;
// their own tests save and load them.
// So do the list controls' DefaultValue, which takes only the index of an item the list
// holds, and the drop-downs' ListTexts, which saves an entry per item beside its own.
bool dependsOnTheItems(const MemberInfo* m) {
    if (const ClassInfo* c = findClass(u"ListBoxEx"); c && c->member(u"DefaultValue") == m) {
        return true;
    }
    for (const char16_t* name : {u"DropDownCombo", u"DropDownList"}) {
        const ClassInfo* c = findClass(name);
        if (c && (c->member(u"DefaultValue") == m || c->member(u"ListTexts") == m)) return true;
    }
    return false;
}

std::vector<const MemberInfo*> settable(std::vector<const MemberInfo*> saved) {
    std::erase_if(saved,
                  [](const MemberInfo* m) { return !m->writable() || dependsOnTheItems(m); });
    return saved;
}

class EveryClassTest : public ::testing::TestWithParam<Case> {
protected:
    void SetUp() override {
        h = GetParam().host.make();
        h->setUserMode(false);  // the designer: every saved property may be set
    }
    const ClassInfo& cls() const { return *GetParam().cls; }
    Control& add(const std::u16string& name) { return h->add(cls(), name); }

    // Sets a saved property to a value other than the one it has; false when no
    // candidate is taken (a property check refused them all).
    bool tryChange(Control& c, const MemberInfo& m) {
        const Variant before = getProperty(c, m.name);
        for (const Variant& v : candidates(m, before)) {
            letProperty(c, m.name, v);
            if (!(getProperty(c, m.name) == before)) return true;
        }
        return false;
    }
    // As tryChange; fails when no candidate is taken.
    void change(Control& c, const MemberInfo& m) {
        if (!tryChange(c, m)) {
            ADD_FAILURE() << "no value other than the default taken by " << toUtf8(m.name);
        }
    }
    // Changes every saved property. One whose check depends on another (a default index
    // bounded by the number of items) is tried again after the others.
    void changeAll(Control& c) {
        std::vector<const MemberInfo*> refused;
        for (const MemberInfo* m : settable(cls().savedInWriteOrder())) {
            // A coupling may have moved it off its default already (FileDialogBox's
            // NoLongNames once Explorer is off): changing it again could only bring it back.
            if (!m->saved->ambientFont &&
                !sameBagValue(getProperty(c, m->name), m->saved->defaultValue)) {
                continue;
            }
            if (!tryChange(c, *m)) refused.push_back(m);
        }
        for (const MemberInfo* m : refused) change(c, *m);
    }
    // The saved properties whose values differ from before, in write order.
    std::vector<std::u16string> differing(Control& c, const std::vector<Variant>& before) {
        std::vector<std::u16string> names;
        // Read-only saved properties are not read: reading MessageBox's Answer shows it.
        const auto saved = settable(cls().savedInWriteOrder());
        for (std::size_t i = 0; i < saved.size(); ++i) {
            if (!(getProperty(c, saved[i]->name) == before[i])) {
                names.push_back(saved[i]->saved->writeName);
            }
        }
        return names;
    }
    // The names the class reads that belong to no public member are left out of reads.
    std::vector<std::u16string> publishedOnly(std::vector<std::u16string> reads) const {
        for (const SavedInfo& s : cls().unpublishedSaved()) {
            const auto it = std::find(reads.begin(), reads.end(), s.readName);
            if (it != reads.end()) reads.erase(it);
        }
        return reads;
    }

    std::unique_ptr<Harness> h;
};

TEST_P(EveryClassTest, shouldReadEveryReadableMemberOfANewControl) {
    Control& c = add(u"c");
    for (const auto& m : cls().members()) {
        if (!m.readable() || !m.params.empty()) continue;
        Variant v;
        EXPECT_NO_THROW(v = getProperty(c, m.name)) << toUtf8(m.name);
        if (m.type != VarType::Empty) {
            EXPECT_EQ(v.type(), m.type) << toUtf8(m.name);
        }
    }
}

TEST_P(EveryClassTest, shouldWriteNothingForANewControl) {
    Control& c = add(u"c");
    MemoryBag bag;
    c.writeProperties(bag);
    EXPECT_TRUE(bag.entries().empty()) << toUtf8(bag.entries().front().first);
}

TEST_P(EveryClassTest, shouldWriteNothingAfterLoadingAnEmptyBag) {
    MemoryBag empty;
    Control& c = h->load(cls(), u"c", empty);
    // Written before the reads: reading MessageBox's Answer shows the box and keeps its answer.
    MemoryBag bag;
    c.writeProperties(bag);
    EXPECT_TRUE(bag.entries().empty());
    for (const auto& m : cls().members()) {
        if (m.readable() && m.params.empty()) {
            EXPECT_NO_THROW(getProperty(c, m.name)) << toUtf8(m.name);
        }
    }
}

// A property whose let changes another saved one too (a default that also sets a saved
// value) is written with it; one that cannot leave its default alone (a default index
// bounded by the number of buttons) is changed after the others. Whatever differs from
// the fresh control is written, and nothing else.
TEST_P(EveryClassTest, shouldWriteEachSavedPropertyAloneUnderItsBagNameAndKind) {
    for (const MemberInfo* m : settable(cls().savedInWriteOrder())) {
        const std::u16string name = u"c" + m->name;
        Control& c = add(name);
        const Variant fresh = getProperty(c, m->name);
        std::vector<Variant> before;
        for (const MemberInfo* s : settable(cls().savedInWriteOrder())) {
            before.push_back(getProperty(c, s->name));
        }
        if (!tryChange(c, *m)) changeAll(c);
        MemoryBag bag;
        c.writeProperties(bag);
        const auto names = entryNames(bag);
        ASSERT_EQ(names, differing(c, before)) << toUtf8(m->name);
        const auto it = std::find(names.begin(), names.end(), m->saved->writeName);
        ASSERT_NE(it, names.end()) << toUtf8(m->name);
        const VarType kind =
            m->saved->ambientFont ? VarType::Object : m->saved->defaultValue.type();
        EXPECT_EQ(bag.entries()[static_cast<std::size_t>(it - names.begin())].second.type(), kind)
            << toUtf8(m->name);
        if (!m->saved->ambientFont) {
            EXPECT_TRUE(sameBagValue(fresh, m->saved->defaultValue))
                << "a new control holds the default the table gives: " << toUtf8(m->name);
        }
    }
}

TEST_P(EveryClassTest, shouldWriteInTheTablesOrderAndReadBackUnderTheTablesReadNames) {
    Control& a = add(u"a");
    changeAll(a);
    MemoryBag bag;
    a.writeProperties(bag);
    std::vector<std::u16string> written;
    for (const MemberInfo* m : settable(cls().savedInWriteOrder())) {
        written.push_back(m->saved->writeName);
    }
    EXPECT_EQ(entryNames(bag), written);

    RecordingBag recording(bag);
    Control& b = h->load(cls(), u"b", recording);
    std::vector<std::u16string> read;
    for (const MemberInfo* m : cls().savedInReadOrder()) read.push_back(m->saved->readName);
    EXPECT_EQ(publishedOnly(recording.reads), read);

    for (const MemberInfo* m : settable(cls().savedInWriteOrder())) {
        EXPECT_EQ(getProperty(b, m->name), getProperty(a, m->name))
            << toUtf8(m->name) << " survives a save and load";
    }
    MemoryBag again;
    b.writeProperties(again);
    EXPECT_EQ(entryNames(again), written) << "what was loaded is saved again";
}

TEST_P(EveryClassTest, shouldRefuseEveryDesignTimeOnlyLetAtRunTimeThroughTheTable) {
    Control& c = add(u"c");
    h->setUserMode(true);
    for (const auto& m : cls().members()) {
        if (!m.designTimeOnly) continue;
        const Variant before = getProperty(c, m.name);
        h->clearRecords(u"c");
        const auto tried = candidates(m, before);
        ASSERT_FALSE(tried.empty());
        try {
            letProperty(c, m.name, tried.front());
            ADD_FAILURE() << "expected 382 for " << toUtf8(m.name);
        } catch (const Error& e) {
            EXPECT_EQ(e.number(), err::SetNotSupportedAtRuntime) << toUtf8(m.name);
            EXPECT_TRUE(e.source().empty());
        }
        EXPECT_EQ(getProperty(c, m.name), before) << toUtf8(m.name);
        EXPECT_TRUE(h->changes(u"c").empty()) << toUtf8(m.name);
    }
}

TEST_P(EveryClassTest, shouldNeverRaiseTheDeclaredLifecycleEvents) {
    Control& a = add(u"a");
    h->resize(u"a", 2400, 600);
    MemoryBag bag;
    a.writeProperties(bag);
    h->load(cls(), u"b", bag);
    h->resize(u"b", 2000, 500);
    for (const auto& e : cls().events()) {
        if (e.raised) continue;
        for (const char16_t* control : {u"a", u"b"}) {
            const auto names = corvex::testing::eventNames(h->events(control));
            EXPECT_EQ(std::count(names.begin(), names.end(), e.name), 0)
                << toUtf8(e.name) << " on " << toUtf8(control);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Hosts, EveryClassTest, ::testing::ValuesIn(cases()),
                         corvex::testing::classOnHostName);

}  // namespace
