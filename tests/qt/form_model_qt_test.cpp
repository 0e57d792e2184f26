// The Qt host's form keeps its controls in the form model: one naming rule, control
// arrays, controls inside containers, and controls that refuse to work once their
// surface has gone, however they were kept.
#include <gtest/gtest.h>

#include <QGroupBox>
#include <QWidget>
#include <memory>

#include "corvex/common/boolean_box.h"
#include "corvex/common/text.h"
#include "corvex/entry/memo_box.h"
#include "corvex/entry/num_input_box.h"
#include "corvex/library/class_table.h"
#include "corvex/library/memory_bag.h"
#include "corvex/library/server.h"
#include "corvex/qt/control_host.h"
#include "corvex/qt/convert.h"
#include "corvex/qt/form.h"
#include "corvex/qt/host.h"

namespace corvex::qt {
namespace {

std::int32_t errorOf(const std::function<void()>& f) {
    try {
        f();
    } catch (const Error& e) {
        return e.number();
    }
    return 0;
}

// Every member of a detached control raises 398; none reaches the gone surface.
void expectEveryMemberRefuses(Object& object) {
    for (const MemberInfo& m : object.classInfo().members()) {
        EXPECT_EQ(
            errorOf([&] { invoke(object, m.name, m.isMethod ? CallKind::Method : CallKind::Get); }),
            err::ClientSiteNotAvailable)
            << toUtf8(object.classInfo().name() + u"." + m.name);
    }
    EXPECT_EQ(errorOf([&] { letProperty(object, u"KeyName", Variant(u"k")); }),
              err::ClientSiteNotAvailable);
}

class FormModelQt : public ::testing::Test {
protected:
    QtHost host;
    std::unique_ptr<QWidget> window = std::make_unique<QWidget>();
    std::unique_ptr<QtForm> form = std::make_unique<QtForm>(host, window.get());

    QtControlHost* add(const ClassInfo& cls, const QString& name, QWidget* container = nullptr,
                       std::int16_t index = NoIndex) {
        QtControlHost* h = form->addControl(cls, name, container, index);
        h->initNew();
        return h;
    }
};

TEST_F(FormModelQt, shouldCreateEveryLibraryClassThroughTheClassFactory) {
    for (const ClassInfo* c : publicClasses()) {
        const std::size_t before = factoriesServed();
        QtControlHost* h = add(*c, QString::fromStdU16String(u"x" + c->name()));
        EXPECT_EQ(&h->control().classInfo(), c) << toUtf8(c->name());
        EXPECT_EQ(factoriesServed(), before + 1) << toUtf8(c->name());
    }
    EXPECT_EQ(liveServerObjects(), 0u);
    form.reset();
    window.reset();
    EXPECT_EQ(DllCanUnloadNow(), S_OK);
}

TEST_F(FormModelQt, shouldFindAControlWithoutRegardToAsciiCase) {
    QtControlHost* h = add(BooleanBox::staticClassInfo(), QStringLiteral("chkAgree"));
    EXPECT_EQ(form->find(QStringLiteral("CHKAGREE")), h);
    EXPECT_EQ(errorOf([&] {
                  form->addControl(BooleanBox::staticClassInfo(), QStringLiteral("chkagree"));
              }),
              err::WrongArguments);
    EXPECT_EQ(form->hosts().size(), 1u);
}

TEST_F(FormModelQt, shouldHoldTheElementsOfAControlArray) {
    QtControlHost* a = add(BooleanBox::staticClassInfo(), QStringLiteral("opt"), nullptr, 0);
    QtControlHost* b = add(BooleanBox::staticClassInfo(), QStringLiteral("opt"), nullptr, 1);
    EXPECT_EQ(form->find(QStringLiteral("OPT"), 0), a);
    EXPECT_EQ(form->find(QStringLiteral("opt"), 1), b);
    EXPECT_EQ(form->find(QStringLiteral("opt")), nullptr);
    EXPECT_EQ(errorOf([&] {
                  form->addControl(BooleanBox::staticClassInfo(), QStringLiteral("opt"), nullptr,
                                   1);
              }),
              err::WrongArguments);
}

TEST_F(FormModelQt, shouldEnumerateControlsInsideGroupBoxesInCreationOrder) {
    auto* group = new QGroupBox(window.get());
    QtControlHost* first = add(BooleanBox::staticClassInfo(), QStringLiteral("a"), group);
    QtControlHost* second = add(NumInputBox::staticClassInfo(), QStringLiteral("b"));
    const std::vector<ObjectRef> controls = form->controls();
    ASSERT_EQ(controls.size(), 2u);
    EXPECT_EQ(controls[0], first->object());
    EXPECT_EQ(controls[1], second->object());
    EXPECT_EQ(first->parentForm(), form.get());
}

TEST_F(FormModelQt, shouldDetachAControlWhoseGroupBoxIsDeleted) {
    auto* group = new QGroupBox(window.get());
    QtControlHost* h = add(MemoBox::staticClassInfo(), QStringLiteral("memo"), group);
    const Variant kept(h->object());
    delete group;
    EXPECT_EQ(form->find(QStringLiteral("memo")), nullptr);
    EXPECT_TRUE(form->controls().empty());
    expectEveryMemberRefuses(*kept.asObject());
}

TEST_F(FormModelQt, shouldDetachEveryPublicClassKeptPastItsForm) {
    std::vector<Variant> kept;
    for (const ClassInfo* cls : publicClasses()) {
        QtControlHost* h = add(*cls, toQString(u"c" + cls->name()));
        kept.emplace_back(h->object());
    }
    form.reset();
    window.reset();
    for (const Variant& v : kept) expectEveryMemberRefuses(*v.asObject());
}

TEST_F(FormModelQt, shouldDetachAControlKeptByTheSettingsWalkOnceItsWindowCloses) {
    add(BooleanBox::staticClassInfo(), QStringLiteral("chk"));
    // What a service control's walk over the form would hold.
    const std::vector<ObjectRef> walk = form->controls();
    window.reset();  // the window takes its children with it, the form stays behind
    EXPECT_TRUE(form->hosts().empty());
    ASSERT_EQ(walk.size(), 1u);
    expectEveryMemberRefuses(*walk[0]);
}

TEST_F(FormModelQt, shouldNotKeepAControlThatFailsToLoad) {
    QtControlHost* h = form->addControl(BooleanBox::staticClassInfo(), QStringLiteral("bad"));
    const Variant kept(h->object());
    MemoryBag bag({{u"DefaultValue", Variant(u"not a Boolean")}});
    EXPECT_NE(errorOf([&] { h->load(bag); }), 0);
    EXPECT_EQ(form->find(QStringLiteral("bad")), nullptr);
    delete h;
    expectEveryMemberRefuses(*kept.asObject());
    add(BooleanBox::staticClassInfo(), QStringLiteral("bad"));  // the name is free again
}

}  // namespace
}  // namespace corvex::qt
