// SettingHandle on the headless host, with real INI files and a real settings store in a
// folder of the test's own.
#include "corvex/services/setting_handle.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "corvex/common/boolean_box.h"
#include "corvex/common/text.h"
#include "corvex/entry/memo_box.h"
#include "corvex/entry/num_input_box.h"
#include "corvex/files/file_name_box.h"
#include "corvex/headless/standard_controls.h"
#include "corvex/library/ini_file.h"
#include "corvex/library/memory_bag.h"
#include "corvex/options/multi_option.h"
#include "corvex/options/single_option.h"
#include "corvex/posix/file_system.h"
#include "support/file_limits.h"
#include "support/headless_fixture.h"
#include "support/temp_folder.h"

using namespace corvex;
using corvex::testing::readFile;
using corvex::testing::writeFile;

namespace {

// A value control of the kind the list controls are, made here: a 16-bit integer Value
// (the selected index), so that integer values go through the same walk.
class IndexBox : public Control {
public:
    explicit IndexBox(ControlSite& site) : Control(site) {}
    static const ClassInfo& staticClassInfo() {
        using I = IndexBox;
        static const ClassInfo info(
            u"IndexBox", ClassKind::Control,
            MemberTable<I>()
                .property(u"SectionName", &I::section, &I::setSection)
                .property(u"KeyName", &I::key, &I::setKey)
                .property(u"DefaultValue", &I::defaultValue, &I::setDefaultValue)
                .property(u"Value", &I::value, &I::setValue)
                .build(),
            {}, [](ControlSite& site) { return std::make_shared<IndexBox>(site); });
        return info;
    }
    const ClassInfo& classInfo() const override { return staticClassInfo(); }
    void initProperties() override {}
    void readProperties(PropertyBag&) override {}
    void writeProperties(PropertyBag&) override {}
    std::u16string section() const { return section_; }
    void setSection(std::u16string s) { section_ = std::move(s); }
    std::u16string key() const { return key_; }
    void setKey(std::u16string k) { key_ = std::move(k); }
    std::int16_t defaultValue() const { return default_; }
    void setDefaultValue(std::int16_t v) { default_ = v; }
    std::int16_t value() const { return value_; }
    void setValue(std::int16_t v) { value_ = v; }

protected:
    void releaseWidgets() override {}
    void widgetEvent(Widget&, WidgetEvent&) override {}

private:
    std::u16string section_;
    std::u16string key_;
    std::int16_t default_ = 0;
    std::int16_t value_ = 0;
};

int errorOf(const std::function<void()>& f) {
    try {
        f();
    } catch (const Error& e) {
        return e.number();
    }
    return 0;
}

class SettingHandleTest : public corvex::testing::HeadlessTest {
protected:
    SettingHandleTest() {
        h.host().profiles().setFolders({root / "ini", root / "settings"});
        handle = &static_cast<SettingHandle&>(h.add(SettingHandle::staticClassInfo(), u"sh"));
    }

    // A library control loaded with its persistence members (and a default value).
    Control& place(const ClassInfo& cls, const std::u16string& name, const char* section,
                   const char* key, const Variant& defaultValue = Variant()) {
        MemoryBag bag({{u"SectionName", Variant(u16(section))}, {u"KeyName", Variant(u16(key))}});
        if (!defaultValue.isEmpty()) bag.write(u"DefaultValue", defaultValue, Variant());
        return h.load(cls, name, bag);
    }
    IndexBox& indexBox(const std::u16string& name, const char* s, const char* k) {
        auto& box = static_cast<IndexBox&>(h.add(IndexBox::staticClassInfo(), name));
        box.setSection(u16(s));
        box.setKey(u16(k));
        return box;
    }
    BooleanBox& booleanBox(const std::u16string& name, const char* s, const char* k,
                           bool defaultValue = false) {
        return static_cast<BooleanBox&>(
            place(BooleanBox::staticClassInfo(), name, s, k, Variant(Boolean(defaultValue))));
    }
    Variant call(std::u16string_view method, std::vector<Variant> args) {
        return invoke(*handle, method, CallKind::Method, args);
    }
    Variant value(Control& c) { return getProperty(c, u"Value"); }
    std::string iniPath(const char* name) { return root / name; }
    std::u16string ini(const char* name) { return fromUtf8(iniPath(name)); }

    corvex::testing::TempFolder root{"corvex-setting"};
    SettingHandle* handle = nullptr;
};

}  // namespace

// --- the four primitives --------------------------------------------------------------

TEST_F(SettingHandleTest, shouldWriteNothingWithNoFileNameAndUseIniFileNameWhenSet) {
    call(u"SaveIni", {u"S", u"K", std::int16_t{5}, u""});
    EXPECT_TRUE(std::filesystem::is_empty(root.path()));
    handle->setIniFileName(ini("a.ini"));
    call(u"SaveIni", {u"S", u"K", std::int16_t{5}, u""});
    EXPECT_EQ(readFile(iniPath("a.ini")), "[S]\nK=5\n");
}

TEST_F(SettingHandleTest, shouldPreferThePassedFileNameToIniFileName) {
    handle->setIniFileName(ini("property.ini"));
    call(u"SaveIni", {u"S", u"K", u"v", ini("passed.ini")});
    EXPECT_EQ(readFile(iniPath("passed.ini")), "[S]\nK=v\n");
    EXPECT_FALSE(std::filesystem::exists(iniPath("property.ini")));
}

TEST_F(SettingHandleTest, shouldPutAFileNamedWithoutAFolderInTheDefaultFolder) {
    handle->setIniFileName(u"app.ini");
    call(u"SaveIni", {u"S", u"K", u"v"});
    EXPECT_EQ(readFile(root / "ini/app.ini"), "[S]\nK=v\n");
    EXPECT_EQ(call(u"GetIni", {u"s", u"k", u"d"}), Variant(u"v"));
}

TEST_F(SettingHandleTest, shouldWriteAnEmptyValueForAnOmittedNewValue) {
    call(u"SaveIni", {u"S", u"K", Variant(), ini("a.ini")});
    handle->setIniFileName(ini("a.ini"));
    call(u"SaveIni", {u"S", u"J"});
    EXPECT_EQ(readFile(iniPath("a.ini")), "[S]\nK=\nJ=\n");
}

TEST_F(SettingHandleTest, shouldReadEmptyNotTheDefaultForAnEmptySectionOrKey) {
    writeFile(iniPath("a.ini"), "[S]\nK=v\n");
    EXPECT_TRUE(call(u"GetIni", {u"", u"K", u"d", ini("a.ini")}).isEmpty());
    EXPECT_TRUE(call(u"GetIni", {u"S", u"", u"d", ini("a.ini")}).isEmpty());
    EXPECT_TRUE(call(u"GetIni", {u"S", u"K", u"d", u""}).isEmpty());
    EXPECT_TRUE(call(u"GetRegistry", {u"", u"K", u"d", u"App"}).isEmpty());
    EXPECT_TRUE(call(u"GetRegistry", {u"S", u"K", u"d"}).isEmpty());
}

TEST_F(SettingHandleTest, shouldReadTheDefaultForAMissingEntryAndEmptyForAnEmptyValue) {
    writeFile(iniPath("a.ini"), "[S]\nEmpty=\n");
    EXPECT_EQ(call(u"GetIni", {u"S", u"Missing", u"d", ini("a.ini")}), Variant(u"d"));
    EXPECT_EQ(call(u"GetIni", {u"S", u"Empty", u"d", ini("a.ini")}), Variant(u""));
    EXPECT_EQ(call(u"GetIni", {u"S", u"Missing", std::int16_t{7}, ini("a.ini")}), Variant(u"7"));
    EXPECT_EQ(call(u"GetIni", {u"S", u"Missing", Variant(), ini("none.ini")}), Variant(u""));
    EXPECT_EQ(call(u"GetIni", {u"S", u"Missing"}).type(), VarType::Empty);
}

TEST_F(SettingHandleTest, shouldCutALongValueAt1023BytesNeverInsideACharacter) {
    std::string wide = "a" + std::string(700, 'y');
    for (int i = 0; i < 200; ++i) wide += "値";
    writeFile(iniPath("a.ini"), "[S]\nLong=" + std::string(2000, 'x') + "\nWide=" + wide + "\n");
    const Variant longValue = call(u"GetIni", {u"S", u"Long", u"", ini("a.ini")});
    EXPECT_EQ(longValue, Variant(std::u16string(1023, u'x')));
    // "a", 700 "y" and then three-byte characters: 1023 bytes end inside the 108th.
    const std::string read = toUtf8(call(u"GetIni", {u"S", u"Wide", u"", ini("a.ini")}).toString());
    EXPECT_EQ(read.size(), 1 + 700 + 107 * 3u);
    EXPECT_EQ(read, wide.substr(0, read.size()));
}

TEST_F(SettingHandleTest, shouldCutTheDefaultTooAndTrimItsTrailingBlanks) {
    EXPECT_EQ(call(u"GetIni", {u"S", u"K", u"dflt   ", ini("none.ini")}), Variant(u"dflt"));
    const std::u16string longDefault(1500, u'd');
    EXPECT_EQ(call(u"GetIni", {u"S", u"K", longDefault, ini("none.ini")}).toString().size(), 1023u);
}

TEST_F(SettingHandleTest, shouldLetConversionErrorsOfSaveIniAndGetIniReachTheCaller) {
    const Variant object(ObjectRef(handle->shared_from_this()));
    handle->setIniFileName(ini("a.ini"));
    EXPECT_EQ(errorOf([&] { call(u"SaveIni", {u"S", u"K", object}); }), err::TypeMismatch);
    EXPECT_EQ(errorOf([&] { call(u"GetIni", {u"S", u"K", object}); }), err::TypeMismatch);
    EXPECT_EQ(errorOf([&] { call(u"SaveIni", {object, u"K", u"v"}); }), err::TypeMismatch);
    EXPECT_FALSE(std::filesystem::exists(iniPath("a.ini")));
}

TEST_F(SettingHandleTest, shouldSwallowFailuresOfTheSettingsStore) {
    const Variant object(ObjectRef(handle->shared_from_this()));
    EXPECT_EQ(errorOf([&] { call(u"SaveRegistry", {u"S", u"K", object, u"App"}); }), 0);
    // The application's file is a folder: the store can be neither read nor written.
    std::filesystem::create_directories(root / "settings/Broken.ini");
    EXPECT_EQ(errorOf([&] { call(u"SaveRegistry", {u"S", u"K", u"v", u"Broken"}); }), 0);
    EXPECT_TRUE(call(u"GetRegistry", {u"S", u"K", u"d", u"Broken"}).isEmpty());
}

TEST_F(SettingHandleTest, shouldRoundTripTheSettingsStoreWithTheAppNameFallback) {
    call(u"SaveRegistry", {u"S", u"K", std::int16_t{12}, u"App"});
    EXPECT_EQ(call(u"GetRegistry", {u"s", u"k", u"d", u"APP"}), Variant(u"12"));
    EXPECT_EQ(call(u"GetRegistry", {u"S", u"Other", u"d", u"App"}), Variant(u"d"));
    handle->setAppName(u"App");
    EXPECT_EQ(call(u"GetRegistry", {u"S", u"K"}), Variant(u"12"));
    EXPECT_EQ(call(u"GetRegistry", {u"S", u"Other"}), Variant(u""));
    EXPECT_EQ(readFile(root / "settings/App.ini"), "[S]\nK=\"12\"\n");
}

// --- operations on one control ----------------------------------------------------------

TEST_F(SettingHandleTest, shouldTakeTheDefaultOfAControlFromItsOwnDefaultValueNeverTheArgument) {
    BooleanBox& b = booleanBox(u"b", "S", "Missing", true);
    b.setValue(false);
    Variant args[] = {Variant(ObjectRef(b.shared_from_this())), u"False", u"App"};
    invoke(*handle, u"GetAControlFromRegistry", CallKind::Method, args);
    EXPECT_EQ(b.value(), Boolean(true));
}

TEST_F(SettingHandleTest, shouldSaveAndRestoreOneControlThroughTheSettingsStore) {
    BooleanBox& b = booleanBox(u"b", "S", "B");
    b.setValue(true);
    Variant args[] = {Variant(ObjectRef(b.shared_from_this())), u"App"};
    invoke(*handle, u"SaveAControlToRegistry", CallKind::Method, args);
    b.setValue(false);
    Variant get[] = {Variant(ObjectRef(b.shared_from_this())), Variant(), u"App"};
    invoke(*handle, u"GetAControlFromRegistry", CallKind::Method, get);
    EXPECT_EQ(b.value(), Boolean(true));
}

TEST_F(SettingHandleTest, shouldSaveOneControlToAnIniFile) {
    BooleanBox& b = booleanBox(u"b", "S", "B");
    b.setValue(true);
    Variant args[] = {Variant(ObjectRef(b.shared_from_this())), ini("a.ini")};
    invoke(*handle, u"SaveAControlToIni", CallKind::Method, args);
    EXPECT_EQ(readFile(iniPath("a.ini")), "[S]\nB=True\n");
}

TEST_F(SettingHandleTest, shouldOfferNoSingleControlReadFromAnIniFile) {
    EXPECT_EQ(SettingHandle::staticClassInfo().member(u"GetAControlFromIni"), nullptr);
}

TEST_F(SettingHandleTest, shouldPassOverAControlWithoutTheMembersInASingleOperation) {
    auto& plain = h.add(headless::standardTextBoxClass(), u"t");
    Variant args[] = {Variant(ObjectRef(plain.shared_from_this())), ini("a.ini")};
    EXPECT_EQ(errorOf([&] { invoke(*handle, u"SaveAControlToIni", CallKind::Method, args); }), 0);
    EXPECT_FALSE(std::filesystem::exists(iniPath("a.ini")));
    Variant none[] = {Variant(ObjectRef()), ini("a.ini")};
    EXPECT_EQ(errorOf([&] { invoke(*handle, u"SaveAControlToIni", CallKind::Method, none); }), 0);
}

// --- operations on all controls -----------------------------------------------------------

TEST_F(SettingHandleTest, shouldSaveOnlyTheLibraryControlsAndPassOverAStandardTextBox) {
    BooleanBox& b = booleanBox(u"b", "S", "B");
    h.add(headless::standardTextBoxClass(), u"t");
    b.setValue(true);
    EXPECT_EQ(errorOf([&] { call(u"SaveControlsToIni", {ini("a.ini")}); }), 0);
    EXPECT_EQ(readFile(iniPath("a.ini")), "[S]\nB=True\n");
}

TEST_F(SettingHandleTest, shouldStoreEmptyIntoEveryLibraryControlWhenNoApplicationIsKnown) {
    BooleanBox& b = booleanBox(u"b", "S", "B", true);
    Control& memo = place(MemoBox::staticClassInfo(), u"m", "S", "M", Variant(u"memo"));
    Control& num = place(NumInputBox::staticClassInfo(), u"n", "S", "N", Variant(u"12"));
    h.add(headless::standardCheckBoxClass(), u"c");
    ASSERT_EQ(b.value(), Boolean(true));
    ASSERT_EQ(value(memo), Variant(u"memo"));
    call(u"GetControlsFromRegistry", {u""});
    EXPECT_EQ(b.value(), Boolean(false));
    EXPECT_EQ(value(memo), Variant(u""));
    EXPECT_EQ(value(num), Variant(u""));
}

TEST_F(SettingHandleTest, shouldStoreEmptyIntoAControlWithAnEmptyKeyName) {
    BooleanBox& b = booleanBox(u"b", "S", "", true);
    writeFile(iniPath("a.ini"), "[S]\n=True\n");
    call(u"GetControlsFromIni", {ini("a.ini")});
    EXPECT_EQ(b.value(), Boolean(false));
}

TEST_F(SettingHandleTest, shouldLeaveAControlUnchangedByTextItsValueRefusesAndGoOn) {
    BooleanBox& first = booleanBox(u"first", "S", "First");
    Control& memo = place(MemoBox::staticClassInfo(), u"m", "S", "M");
    BooleanBox& last = booleanBox(u"last", "S", "Last");
    first.setValue(true);
    writeFile(iniPath("a.ini"), "[S]\nFirst=abc\nM=read\nLast=True\n");
    call(u"GetControlsFromIni", {ini("a.ini")});
    EXPECT_EQ(first.value(), Boolean(true));
    EXPECT_EQ(value(memo), Variant(u"read"));
    EXPECT_EQ(last.value(), Boolean(true));
}

TEST_F(SettingHandleTest, shouldLeaveAnIntegerValueUnchangedByTextThatIsNoNumber) {
    IndexBox& bad = indexBox(u"bad", "S", "Bad");
    IndexBox& good = indexBox(u"good", "S", "Good");
    bad.setValue(3);
    writeFile(iniPath("a.ini"), "[S]\nBad=three\nGood=4\n");
    call(u"GetControlsFromIni", {ini("a.ini")});
    EXPECT_EQ(bad.value(), 3);
    EXPECT_EQ(good.value(), 4);
}

TEST_F(SettingHandleTest, shouldRoundTripAnIntegerValueThroughAnIniFileAndTheSettingsStore) {
    IndexBox& box = indexBox(u"index", "S", "Index");
    box.setDefaultValue(9);
    box.setValue(-12);
    call(u"SaveControlsToIni", {ini("i.ini")});
    call(u"SaveControlsToRegistry", {u"App"});
    EXPECT_EQ(readFile(iniPath("i.ini")), "[S]\nIndex=-12\n");
    box.setValue(0);
    call(u"GetControlsFromIni", {ini("i.ini")});
    EXPECT_EQ(box.value(), -12);
    box.setValue(0);
    call(u"GetControlsFromRegistry", {u"App"});
    EXPECT_EQ(box.value(), -12);
    call(u"GetControlsFromIni", {ini("none.ini")});
    EXPECT_EQ(box.value(), 9);
}

TEST_F(SettingHandleTest, shouldUseTheControlsDefaultValueForAMissingEntry) {
    BooleanBox& b = booleanBox(u"b", "S", "B", true);
    b.setValue(false);
    call(u"GetControlsFromIni", {ini("none.ini")});
    EXPECT_EQ(b.value(), Boolean(true));
}

TEST_F(SettingHandleTest, shouldWalkTheControlsInTheFormsOrder) {
    booleanBox(u"z", "S", "Z");
    booleanBox(u"a", "S", "A");
    booleanBox(u"m", "T", "M");
    call(u"SaveControlsToIni", {ini("a.ini")});
    EXPECT_EQ(readFile(iniPath("a.ini")), "[S]\nZ=False\nA=False\n[T]\nM=False\n");
}

TEST_F(SettingHandleTest, shouldFallBackToIniFileNameAndAppNameForOmittedArguments) {
    BooleanBox& b = booleanBox(u"b", "S", "B");
    handle->setIniFileName(ini("a.ini"));
    handle->setAppName(u"App");
    b.setValue(true);
    call(u"SaveControlsToIni", {});
    call(u"SaveControlsToRegistry", {});
    b.setValue(false);
    call(u"GetControlsFromIni", {});
    EXPECT_EQ(b.value(), Boolean(true));
    b.setValue(false);
    call(u"GetControlsFromRegistry", {});
    EXPECT_EQ(b.value(), Boolean(true));
}

TEST_F(SettingHandleTest, shouldReadAndWriteTheFileOnceForAThousandControls) {
    for (int i = 0; i < 1000; ++i) {
        booleanBox(fromUtf8("b" + std::to_string(i)), "S", ("K" + std::to_string(i)).c_str());
    }
    auto& files = h.host().profiles();
    const std::size_t writes = files.writeCount();
    call(u"SaveControlsToIni", {ini("big.ini")});
    EXPECT_EQ(files.writeCount(), writes + 1);
    EXPECT_EQ(IniDocument(readFile(iniPath("big.ini"))).lineCount(), 1001u);
    h.host().profiles().setFolders(files.folders());  // empties the cache
    const std::size_t parses = files.parseCount();
    call(u"GetControlsFromIni", {ini("big.ini")});
    EXPECT_EQ(files.parseCount(), parses + 1);
}

TEST_F(SettingHandleTest, shouldKeepAHandWrittenFileByteForByteExceptTheChangedLine) {
    const std::string hand = "; Orders\r\n[ Main ]\r\n  b = 'True' \r\n; end\r\n";
    writeFile(iniPath("hand.ini"), hand);
    BooleanBox& b = booleanBox(u"b", "MAIN", "B");
    call(u"GetControlsFromIni", {ini("hand.ini")});
    EXPECT_EQ(b.value(), Boolean(true));
    b.setValue(false);
    call(u"SaveControlsToIni", {ini("hand.ini")});
    EXPECT_EQ(readFile(iniPath("hand.ini")), "; Orders\r\n[ Main ]\r\n  b = False\r\n; end\r\n");
}

// --- round trips of every value control -----------------------------------------------------

TEST_F(SettingHandleTest, shouldRoundTripEveryValueControlThroughAnIniFileAndTheSettingsStore) {
    for (const bool store : {false, true}) {
        BooleanBox& b = booleanBox(store ? u"b2" : u"b1", "S", "Bool");
        Control& n = place(NumInputBox::staticClassInfo(), store ? u"n2" : u"n1", "S", "Num");
        Control& r = place(NumInputBoxR::staticClassInfo(), store ? u"r2" : u"r1", "S", "Real");
        Control& m = place(MemoBox::staticClassInfo(), store ? u"m2" : u"m1", "S", "Memo");
        b.setValue(true);
        letProperty(n, u"Value", u"123");
        letProperty(r, u"Value", u"45.5");
        letProperty(m, u"Value", u" memo; with \\ and \"quotes\" ");
        call(store ? u"SaveControlsToRegistry" : u"SaveControlsToIni",
             {store ? u"App" : ini("r.ini")});
        b.setValue(false);
        letProperty(n, u"Value", u"");
        letProperty(r, u"Value", u"");
        letProperty(m, u"Value", u"");
        call(store ? u"GetControlsFromRegistry" : u"GetControlsFromIni",
             {store ? u"App" : ini("r.ini")});
        EXPECT_EQ(b.value(), Boolean(true)) << store;
        EXPECT_EQ(value(n), Variant(u"123")) << store;
        EXPECT_EQ(value(r), Variant(u"45.5")) << store;
        // An INI file trims the blanks around a value; the settings store keeps them.
        EXPECT_EQ(value(m), Variant(store ? u" memo; with \\ and \"quotes\" "
                                          : u"memo; with \\ and \"quotes\""))
            << store;
        h.form().remove(store ? u"b2" : u"b1");
        h.form().remove(store ? u"n2" : u"n1");
        h.form().remove(store ? u"r2" : u"r1");
        h.form().remove(store ? u"m2" : u"m1");
    }
}

TEST_F(SettingHandleTest, shouldKeepAMultiLineMemoInTheSettingsStoreAndItsFirstLineInAnIniFile) {
    Control& m = place(MemoBox::staticClassInfo(), u"m", "S", "Memo");
    letProperty(m, u"Value", u"one\r\ntwo");
    call(u"SaveControlsToRegistry", {u"App"});
    call(u"SaveControlsToIni", {ini("m.ini")});
    letProperty(m, u"Value", u"");
    call(u"GetControlsFromRegistry", {u"App"});
    EXPECT_EQ(value(m), Variant(u"one\r\ntwo"));
    call(u"GetControlsFromIni", {ini("m.ini")});
    EXPECT_EQ(value(m), Variant(u"one"));
}

// --- the control itself -------------------------------------------------------------------

TEST_F(SettingHandleTest, shouldSaveIniFileNameThenAppNameAndReadThemInThatOrder) {
    handle->setAppName(u" app ");
    handle->setIniFileName(u" f.ini ");
    EXPECT_EQ(h.site(u"sh").changes, (std::vector<std::u16string>{u"AppName", u"IniFileName"}));
    MemoryBag bag;
    handle->writeProperties(bag);
    ASSERT_EQ(bag.entries().size(), 2u);
    EXPECT_EQ(bag.entries()[0].first, u"IniFileName");
    EXPECT_EQ(bag.entries()[1].first, u"AppName");
    auto& loaded =
        static_cast<SettingHandle&>(h.load(SettingHandle::staticClassInfo(), u"sh2", bag));
    EXPECT_EQ(loaded.appName(), u" app ");
    EXPECT_EQ(loaded.iniFileName(), u" f.ini ");
}

TEST_F(SettingHandleTest, shouldKeepTheSizeOfItsIcon) {
    h.site(u"sh").resizeTo(3000, 2000);
    EXPECT_EQ(h.site(u"sh").width(), 480);
    EXPECT_EQ(h.site(u"sh").height(), 480);
}

TEST_F(SettingHandleTest, shouldDeclareAnEmptyEventInterfaceAndTheGivenHelpStrings) {
    const ClassInfo& cls = SettingHandle::staticClassInfo();
    EXPECT_TRUE(cls.events().empty());
    EXPECT_EQ(cls.kind(), ClassKind::ServiceControl);
    EXPECT_EQ(cls.member(u"AppName")->help,
              u"アプリケーション名称を設定します。（レジストリ操作で使用）");
    EXPECT_EQ(cls.member(u"IniFileName")->help,
              u"Iniファイル名称を設定します。（Iniファイル操作で使用）");
    EXPECT_TRUE(cls.member(u"SaveIni")->params[2].byRef);
    EXPECT_TRUE(cls.member(u"SaveIni")->params[2].optional);
}

TEST_F(SettingHandleTest, shouldRoundTripTheOptionAndFileNameControlsThroughAnIniFileAndTheStore) {
    for (const bool store : {false, true}) {
        const std::u16string suffix = store ? u"2" : u"1";
        Control& m = place(MultiOption::staticClassInfo(), u"m" + suffix, "S", "Size");
        letProperty(m, u"OptionNum", std::int16_t{3});
        Control& s = place(SingleOption::staticClassInfo(), u"s" + suffix, "S", "Express");
        Control& f = place(FileNameBox::staticClassInfo(), u"f" + suffix, "S", "Document");
        letProperty(m, u"Value", std::int16_t{2});
        letProperty(s, u"Value", Boolean(true));
        letProperty(f, u"Value", u"C:\\Data\\report.txt");
        const Variant target = store ? Variant(u"App") : Variant(ini("o.ini"));
        call(store ? u"SaveControlsToRegistry" : u"SaveControlsToIni", {target});
        letProperty(m, u"Value", std::int16_t{0});
        letProperty(s, u"Value", Boolean(false));
        letProperty(f, u"Value", u"");
        call(store ? u"GetControlsFromRegistry" : u"GetControlsFromIni", {target});
        EXPECT_EQ(value(m), Variant(std::int16_t{2})) << store;
        EXPECT_EQ(value(s), Variant(Boolean(true))) << store;
        EXPECT_EQ(value(f), Variant(u"C:\\Data\\report.txt")) << store;
        if (!store) {
            EXPECT_EQ(readFile(iniPath("o.ini")),
                      "[S]\nSize=2\nExpress=True\nDocument=C:\\Data\\report.txt\n");
        }
        for (const char16_t* n : {u"m", u"s", u"f"}) h.form().remove(n + suffix);
    }
}

TEST_F(SettingHandleTest, shouldFindAnIniFileNamedTheWindowsWayThroughTheDriveMap) {
    std::filesystem::create_directories(root / "Drive/Config");
    corvex::posix::DriveMap drives;
    ASSERT_TRUE(drives.map(u"T:", root / "Drive"));
    corvex::posix::PosixFileSystem files(drives);
    h.host().profiles().setWindowsNameMapper(
        [&files](std::u16string_view name) { return files.nativePathFor(name); });
    // The folder is found whatever the case the name gives it; the new file keeps its name.
    call(u"SaveIni", {u"S", u"K", u"5", u"T:\\CONFIG\\app.ini"});
    EXPECT_EQ(readFile(root / "Drive/Config/app.ini"), "[S]\nK=5\n");
    EXPECT_EQ(call(u"GetIni", {u"s", u"k", u"d", u"t:\\config\\APP.INI"}), Variant(u"5"));
    // A drive nobody mapped names no file: the default comes back and nothing is written.
    EXPECT_EQ(call(u"GetIni", {u"S", u"K", u"d", u"Q:\\app.ini"}), Variant(u"d"));
}
