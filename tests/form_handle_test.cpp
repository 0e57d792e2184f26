// FormHandle on the headless host, whose form and screen have settable geometry: topmost
// on and off, centring in single precision, and bringing a form back onto the screen by
// its top-left corner only.
#include "corvex/services/form_handle.h"

#include <gtest/gtest.h>

#include "corvex/library/memory_bag.h"
#include "support/headless_fixture.h"

using namespace corvex;

namespace {

class FormHandleTest : public corvex::testing::HeadlessTest {
protected:
    void SetUp() override {
        h.host().setScreenSize(19200, 14400);
        MemoryBag empty;
        handle = &dynamic_cast<FormHandle&>(h.load(FormHandle::staticClassInfo(), u"fh", empty));
    }
    Variant call(const char16_t* method, std::vector<Variant> args = {}) {
        return invoke(*handle, method, CallKind::Method, args);
    }
    void place(float left, float top, float width, float height) {
        h.form().move(left, top, width, height);
    }
    FormHandle* handle = nullptr;
};

TEST_F(FormHandleTest, shouldMakeTheFormTopmostWithoutAnArgumentAndReturnNonZero) {
    EXPECT_FALSE(h.form().topMost());
    const Variant result = call(u"SetFormTop");
    EXPECT_EQ(result.type(), VarType::Long);
    EXPECT_NE(result.asLong(), 0);
    EXPECT_TRUE(h.form().topMost());
}

TEST_F(FormHandleTest, shouldEndTopmostWithModeZero) {
    call(u"SetFormTop");
    EXPECT_NE(call(u"SetFormTop", {Variant(std::int32_t{0})}).asLong(), 0);
    EXPECT_FALSE(h.form().topMost());
}

TEST_F(FormHandleTest, shouldMakeNoCallAndReturnZeroForAnyOtherMode) {
    EXPECT_EQ(call(u"SetFormTop", {Variant(std::int32_t{2})}).asLong(), 0);
    EXPECT_FALSE(h.form().topMost());
    call(u"SetFormTop");
    EXPECT_EQ(call(u"SetFormTop", {Variant(std::int32_t{-1})}).asLong(), 0);
    EXPECT_TRUE(h.form().topMost()) << "an unknown mode leaves topmost as it was";
}

TEST_F(FormHandleTest, shouldKeepPlaceAndSizeWhenChangingTopmost) {
    place(100, 200, 4800, 3600);
    call(u"SetFormTop");
    EXPECT_EQ(h.form().left(), 100);
    EXPECT_EQ(h.form().top(), 200);
    EXPECT_EQ(h.form().width(), 4800);
    EXPECT_EQ(h.form().height(), 3600);
}

TEST_F(FormHandleTest, shouldCentreA4800By3600FormAt7200And5400) {
    place(10, 20, 4800, 3600);
    call(u"SetFormCenter");
    EXPECT_EQ(h.form().left(), 7200);
    EXPECT_EQ(h.form().top(), 5400);
    EXPECT_EQ(h.form().width(), 4800);
    EXPECT_EQ(h.form().height(), 3600);
}

TEST_F(FormHandleTest, shouldCentreInSinglePrecisionWithoutRounding) {
    place(0, 0, 4801, 3601);
    handle->setFormCenter();
    EXPECT_FLOAT_EQ(h.form().left(), 7199.5f);
    EXPECT_FLOAT_EQ(h.form().top(), 5399.5f);
}

TEST_F(FormHandleTest, shouldGiveAFormLargerThanTheScreenANegativePlace) {
    place(0, 0, 20000, 15000);
    handle->setFormCenter();
    EXPECT_EQ(h.form().left(), -400);
    EXPECT_EQ(h.form().top(), -300);
}

TEST_F(FormHandleTest, shouldMoveAFormBeyondTheScreensWidthToTheCorner) {
    place(20000, 100, 4800, 3600);
    call(u"MoveInScreen");
    EXPECT_EQ(h.form().left(), 0);
    EXPECT_EQ(h.form().top(), 0);
    EXPECT_EQ(h.form().width(), 4800);
    EXPECT_EQ(h.form().height(), 3600);
}

TEST_F(FormHandleTest, shouldLeaveAFormWhoseCornerIsOnTheScreenWhereItIs) {
    place(15000, 100, 6000, 3600);
    call(u"MoveInScreen");
    EXPECT_EQ(h.form().left(), 15000);
    EXPECT_EQ(h.form().top(), 100);
}

TEST_F(FormHandleTest, shouldCountACornerExactlyOnTheScreensEdgeAsInside) {
    place(19200, 14400, 4800, 3600);
    handle->moveInScreen(std::nullopt);
    EXPECT_EQ(h.form().left(), 19200);
    EXPECT_EQ(h.form().top(), 14400);
    place(0, 0, 4800, 3600);
    handle->moveInScreen(std::nullopt);
    EXPECT_EQ(h.form().left(), 0);
}

TEST_F(FormHandleTest, shouldMoveAFormAboveOrLeftOfTheScreen) {
    place(-1, 100, 4800, 3600);
    handle->moveInScreen(0);
    EXPECT_EQ(h.form().left(), 0);
    EXPECT_EQ(h.form().top(), 0);
    place(100, 14401, 4800, 3600);
    handle->moveInScreen(0);
    EXPECT_EQ(h.form().top(), 0);
}

TEST_F(FormHandleTest, shouldCentreAFormAboveTheScreenInModeOne) {
    place(300, -10, 4800, 3600);
    call(u"MoveInScreen", {Variant(std::int32_t{1})});
    EXPECT_EQ(h.form().left(), 7200);
    EXPECT_EQ(h.form().top(), 5400);
}

TEST_F(FormHandleTest, shouldDoNothingInAnyOtherMode) {
    place(300, -10, 4800, 3600);
    call(u"MoveInScreen", {Variant(std::int32_t{5})});
    EXPECT_EQ(h.form().left(), 300);
    EXPECT_EQ(h.form().top(), -10);
}

TEST_F(FormHandleTest, shouldReadTheScreenAnewAtEachCall) {
    place(0, 0, 4800, 3600);
    h.host().setScreenSize(9600, 7200);
    handle->setFormCenter();
    EXPECT_EQ(h.form().left(), 2400);
    EXPECT_EQ(h.form().top(), 1800);
}

TEST_F(FormHandleTest, shouldSaveNothing) {
    MemoryBag bag;
    handle->writeProperties(bag);
    EXPECT_TRUE(bag.entries().empty());
}

TEST_F(FormHandleTest, shouldKeepTheSizeOfItsIcon) {
    h.resize(u"fh", 3000, 2000);
    EXPECT_EQ(h.site(u"fh").width(), ServiceIconSize);
    EXPECT_EQ(h.site(u"fh").height(), ServiceIconSize);
}

TEST(FormHandleNew, shouldRefuseToActWithoutAFormTakenFromItsSavedProperties) {
    corvex::testing::HeadlessHarness h;
    Control& c = h.add(FormHandle::staticClassInfo(), u"fh");
    try {
        invoke(c, u"SetFormCenter", CallKind::Method);
        FAIL() << "expected 424";
    } catch (const Error& e) {
        EXPECT_EQ(e.number(), err::ObjectRequired);
    }
    EXPECT_EQ(h.form().left(), 0);
}

TEST(FormHandleTable, shouldPublishTheThreeMethodsWithOptionalModes) {
    const ClassInfo& c = FormHandle::staticClassInfo();
    ASSERT_EQ(c.members().size(), 3u);
    EXPECT_EQ(c.members()[0].name, u"SetFormTop");
    EXPECT_EQ(c.members()[0].type, VarType::Long);
    ASSERT_EQ(c.members()[0].params.size(), 1u);
    EXPECT_TRUE(c.members()[0].params[0].optional);
    EXPECT_EQ(c.members()[1].name, u"SetFormCenter");
    EXPECT_EQ(c.members()[2].name, u"MoveInScreen");
    EXPECT_EQ(c.members()[2].params[0].name, u"lngMode");
    EXPECT_EQ(c.kind(), ClassKind::ServiceControl);
}

}  // namespace
