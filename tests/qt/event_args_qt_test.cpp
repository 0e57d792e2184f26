// The Qt host's event log text: each argument by its name, value objects by their fields.
#include <gtest/gtest.h>

#include <vector>

#include "corvex/common/font.h"
#include "corvex/qt/control_host.h"

namespace corvex::qt::testing {
namespace {

EventInfo eventWith(std::vector<ParamInfo> params) {
    return EventInfo{u"Changed", 1, std::move(params), true};
}

TEST(EventLogQt, shouldPrintAFontArgumentAsItsFieldsInTableOrder) {
    const EventInfo ev = eventWith({{u"NewFont", VarType::Object, false, false}});
    const FontDesc f{u"メイリオ", 12, true, false, false, false, 700, 128};
    std::vector<Variant> values{Variant(ObjectRef(Font::make(f)))};
    EXPECT_EQ(
        EventArgs(ev, values).toString(),
        QStringLiteral("Changed(NewFont=Font(\"メイリオ\", 12, True, False, False, False, 700, "
                       "128))"));
}

TEST(EventLogQt, shouldPrintNothingAndStringsAsBefore) {
    const EventInfo ev = eventWith(
        {{u"Target", VarType::Object, false, false}, {u"Text", VarType::String, false, false}});
    std::vector<Variant> values{Variant(ObjectRef()), Variant(u"ab")};
    EXPECT_EQ(EventArgs(ev, values).toString(),
              QStringLiteral("Changed(Target=<object>, Text=\"ab\")"));
}

}  // namespace
}  // namespace corvex::qt::testing
