// Reaching members by name: conversions, argument counts and the errors of a bad call.
#include <gtest/gtest.h>

#include "corvex/common/font.h"
#include "corvex/common/object.h"

using namespace corvex;

namespace {

// A small class with one member of each shape, to pin the table's behaviour down.
class Sample : public Object {
public:
    static const ClassInfo& staticClassInfo() {
        static const ClassInfo info(
            u"Sample", ClassKind::Object,
            MemberTable<Sample>()
                .method(u"Add", &Sample::add, {u"A", u"B"})
                .method(u"Twice", &Sample::twice, {u"Value"})
                .method(u"Greet", &Sample::greet, {u"Name"})
                .property(u"Item", &Sample::item, &Sample::setItem, {u"Index"})
                .getOnly(u"Count", &Sample::count)
                .property(u"Flag", &Sample::flag, &Sample::setFlag)
                .property(u"Design", &Sample::design, &Sample::setDesign)
                .designTimeOnly()
                .method(u"Label", &Sample::label, {u"Text"})
                .byRefAs(0, VarType::String)
                .build(),
            {});
        return info;
    }
    const ClassInfo& classInfo() const override { return staticClassInfo(); }

    std::int32_t add(std::int16_t a, std::int16_t b) { return a + b; }
    void twice(Variant& v) { v = Variant(v.toDouble() * 2); }
    std::u16string greet(std::optional<std::u16string> name) {
        return u"Hello " + name.value_or(u"nobody");
    }
    std::u16string item(std::int16_t i) const { return items_.at(static_cast<std::size_t>(i)); }
    void setItem(std::int16_t i, std::u16string v) { items_.at(static_cast<std::size_t>(i)) = v; }
    std::int16_t count() const { return static_cast<std::int16_t>(items_.size()); }
    Boolean flag() const { return flag_; }
    void setFlag(Boolean b) { flag_ = b; }
    // No check of its own: the table's dispatch applies the design-time rule.
    std::int32_t design() const { return design_; }
    void setDesign(std::int32_t v) { design_ = v; }
    std::int32_t label(Variant& text) { return static_cast<std::int32_t>(text.asString().size()); }

    void requireDesignTime() const override {
        if (running) throw Error(err::SetNotSupportedAtRuntime);
    }
    bool running = false;

private:
    std::vector<std::u16string> items_{u"a", u"b"};
    Boolean flag_;
    std::int32_t design_ = 0;
};

Variant call(Object& o, std::u16string_view name, std::vector<Variant> args,
             CallKind kind = CallKind::Method) {
    return invoke(o, name, kind, args);
}

int errorOf(const std::function<void()>& f) {
    try {
        f();
    } catch (const Error& e) {
        return e.number();
    }
    return 0;
}

TEST(MemberTable, shouldConvertArgumentsAndResultsByTheHostsRules) {
    Sample s;
    EXPECT_EQ(call(s, u"Add", {Variant(u"2"), Variant(2.5)}), Variant(std::int32_t{4}));
}

TEST(MemberTable, shouldPassVariantParametersByReference) {
    Sample s;
    std::vector<Variant> args{Variant(std::int16_t{21})};
    invoke(s, u"Twice", CallKind::Method, args);
    EXPECT_EQ(args[0], Variant(42.0));
}

TEST(MemberTable, shouldTreatArgumentsLeftOffTheEndAsOmitted) {
    Sample s;
    EXPECT_EQ(call(s, u"Greet", {}), Variant(u"Hello nobody"));
    EXPECT_EQ(call(s, u"Greet", {Variant(u"Ann")}), Variant(u"Hello Ann"));
}

TEST(MemberTable, shouldReachIndexedPropertiesWithTheirIndexes) {
    Sample s;
    std::vector<Variant> index{Variant(std::int16_t{1})};
    invoke(s, u"Item", CallKind::Let, index, Variant(u"z"));
    EXPECT_EQ(invoke(s, u"Item", CallKind::Get, index), Variant(u"z"));
}

TEST(MemberTable, shouldMatchMemberNamesWithoutRegardToCase) {
    Sample s;
    EXPECT_EQ(getProperty(s, u"COUNT"), Variant(std::int16_t{2}));
}

TEST(MemberTable, shouldRaise438ForAnUnknownMember) {
    Sample s;
    EXPECT_EQ(errorOf([&] { getProperty(s, u"Nope"); }), err::MemberNotFound);
}

TEST(MemberTable, shouldRaise383WhenLettingAReadOnlyProperty) {
    Sample s;
    EXPECT_EQ(errorOf([&] { letProperty(s, u"Count", Variant(std::int16_t{1})); }),
              err::SetNotSupported);
}

TEST(MemberTable, shouldRaise450ForTheWrongNumberOfArguments) {
    Sample s;
    EXPECT_EQ(errorOf([&] { call(s, u"Add", {Variant(std::int16_t{1})}); }), err::WrongArguments);
    EXPECT_EQ(
        errorOf([&] {
            call(s, u"Add",
                 {Variant(std::int16_t{1}), Variant(std::int16_t{1}), Variant(std::int16_t{1})});
        }),
        err::WrongArguments);
}

TEST(MemberTable, shouldRaiseTheConversionErrorOfABadArgument) {
    Sample s;
    EXPECT_EQ(errorOf([&] {
                  call(s, u"Add", {Variant(u"x"), Variant(std::int16_t{1})});
              }),
              err::TypeMismatch);
    EXPECT_EQ(errorOf([&] {
                  call(s, u"Add", {Variant(40000.0), Variant(std::int16_t{1})});
              }),
              err::Overflow);
}

TEST(MemberTable, shouldCarryRawSixteenBitValuesIntoBooleanParameters) {
    Sample s;
    letProperty(s, u"Flag", Variant(std::int16_t{1}));
    EXPECT_EQ(s.flag().raw, 1);
    letProperty(s, u"Flag", Variant(u"True"));
    EXPECT_EQ(s.flag().raw, -1);
    letProperty(s, u"Flag", Variant(2.0));
    EXPECT_EQ(s.flag().raw, -1) << "non-integer kinds convert as Booleans";
}

TEST(MemberTable, shouldDescribeParametersAndTypes) {
    const MemberInfo* add = Sample::staticClassInfo().member(u"Add");
    ASSERT_NE(add, nullptr);
    EXPECT_TRUE(add->isMethod);
    EXPECT_EQ(add->type, VarType::Long);
    ASSERT_EQ(add->params.size(), 2u);
    EXPECT_EQ(add->params[1].name, u"B");
    EXPECT_EQ(add->params[1].type, VarType::Integer);
    const MemberInfo* greet = Sample::staticClassInfo().member(u"Greet");
    EXPECT_TRUE(greet->params[0].optional);
    const MemberInfo* twice = Sample::staticClassInfo().member(u"Twice");
    EXPECT_TRUE(twice->params[0].byRef);
    EXPECT_FALSE(static_cast<bool>(Sample::staticClassInfo().member(u"Count")->let));
}

TEST(MemberTable, shouldRefuseADesignTimeOnlyLetAtRunTimeInTheDispatch) {
    Sample s;
    letProperty(s, u"Design", Variant(std::int32_t{1}));
    EXPECT_EQ(s.design(), 1) << "allowed at design time";
    s.running = true;
    EXPECT_EQ(errorOf([&] { letProperty(s, u"Design", Variant(std::int32_t{2})); }),
              err::SetNotSupportedAtRuntime);
    EXPECT_EQ(s.design(), 1) << "the setter never ran";
    EXPECT_EQ(getProperty(s, u"Design"), Variant(std::int32_t{1})) << "reading is allowed";
    letProperty(s, u"Flag", Variant(true));
    EXPECT_EQ(s.flag(), Boolean(true)) << "other properties are not affected";
}

TEST(MemberTable, shouldConvertATypedByReferenceArgumentInPlace) {
    Sample s;
    std::vector<Variant> args{Variant(std::int32_t{1234})};
    EXPECT_EQ(invoke(s, u"Label", CallKind::Method, args), Variant(std::int32_t{4}));
    EXPECT_EQ(args[0], Variant(u"1234"));
    const MemberInfo* m = Sample::staticClassInfo().member(u"Label");
    EXPECT_EQ(m->params[0].type, VarType::String);
    EXPECT_TRUE(m->params[0].byRef);
}

TEST(MemberTable, shouldCompareValueObjectsByTheirPropertiesAndOthersByIdentity) {
    FontDesc d;
    d.name = u"A";
    const Variant a(ObjectRef(Font::make(d)));
    const Variant b(ObjectRef(Font::make(d)));
    EXPECT_EQ(a, b) << "two fonts with the same description are the same value";
    d.size = 10;
    EXPECT_NE(a, Variant(ObjectRef(Font::make(d))));
    auto s1 = std::make_shared<Sample>();
    auto s2 = std::make_shared<Sample>();
    EXPECT_EQ(Variant(ObjectRef(s1)), Variant(ObjectRef(s1)));
    EXPECT_NE(Variant(ObjectRef(s1)), Variant(ObjectRef(s2))) << "not value objects";
    EXPECT_TRUE(isValueObject(*Font::make({})));
    EXPECT_FALSE(isValueObject(*s1));
    const auto fields = valueFields(*Font::make(d));
    ASSERT_EQ(fields.size(), 8u);
    EXPECT_EQ(fields[0], (std::pair<std::u16string, Variant>{u"Name", Variant(u"A")}));
    EXPECT_EQ(fields[1], (std::pair<std::u16string, Variant>{u"Size", Variant(10.0)}));
}

TEST(MemberTable, shouldReachFontPropertiesByName) {
    auto f = Font::make({});
    letProperty(*f, u"Bold", Variant(true));
    EXPECT_TRUE(f->bold());
    EXPECT_EQ(getProperty(*f, u"Weight"), Variant(std::int16_t{700}));
}

}  // namespace
