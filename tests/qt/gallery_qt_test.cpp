// The gallery window as a user drives it: its check boxes, the values file, Store and
// Restore, the enable switch and the locale switch.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QTemporaryDir>
#include <QLabel>
#include <QStandardPaths>
#include <QTest>

#include "corvex/library/form_file.h"
#include "corvex/qt/control_host.h"
#include "corvex/qt/convert.h"
#include "corvex/qt/form.h"
#include "corvex/qt/host.h"
#include "gallery_window.h"
#include "qt_test_support.h"

namespace corvex::qt::testing {
namespace {

class GalleryQt : public ::testing::Test {
protected:
    GalleryQt() {
        // Each test has a values file of its own, never the user's settings: the tests run
        // in parallel processes.
        window.setValuesFile(folder.filePath(QStringLiteral("gallery-values.frm")));
        window.show();
        [[maybe_unused]] const bool exposed = QTest::qWaitForWindowExposed(&window);
    }
    QTemporaryDir folder;

    QtControlHost* control(const char* name) const {
        return window.control(QString::fromLatin1(name));
    }
    QCheckBox* boxOf(const char* name) const {
        return qobject_cast<QCheckBox*>(
            control(name)->innerWidget(QStringLiteral("chkBooleanBox")));
    }
    std::u16string value(const char* name) const {
        return getProperty(*control(name)->object(), u"Value").toString();
    }

    QtHost host;
    gallery::GalleryWindow window{host};
};

TEST_F(GalleryQt, shouldHoldEveryTableEntryOnItsForm) {
    const auto& entries = gallery::galleryEntries();
    ASSERT_EQ(window.form().hosts().size(), entries.size());
    for (std::size_t i = 0; i < entries.size(); ++i) {
        QtControlHost* h = window.form().hosts()[i];
        EXPECT_EQ(h->objectName(), toQString(entries[i].name));
        EXPECT_EQ(&h->classInfo(), &entries[i].classInfo());
        EXPECT_EQ(h->parentForm(), &window.form());
    }
    EXPECT_EQ(window.form().controls().size(), entries.size());
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Corvex gallery"));
}

TEST_F(GalleryQt, shouldLoadTheDesignPropertiesOfItsTable) {
    EXPECT_EQ(boxOf("newsletter")->text(), QStringLiteral("Send me the newsletter"));
    EXPECT_EQ(
        getProperty(*control("onlyWhenEnabled")->object(), u"AlwaysFalseWhenNotEnabled").toString(),
        u"True");
}

TEST_F(GalleryQt, shouldCheckTheNewsletterBoxOnAMouseClickAndLogTheClick) {
    QCheckBox* box = boxOf("newsletter");
    QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, indicatorCentre(box));
    EXPECT_EQ(value("newsletter"), u"True");
    EXPECT_TRUE(window.eventLog().contains(QStringLiteral("newsletter.Click()")));
    EXPECT_TRUE(window.valuesText().contains(QStringLiteral("newsletter = True")));
    auto* label = window.findChild<QLabel*>(QStringLiteral("values"));
    ASSERT_NE(label, nullptr);
    EXPECT_TRUE(label->text().contains(QStringLiteral("newsletter = True")));
}

TEST_F(GalleryQt, shouldSaveTheValuesAsAFormFileAndLoadThemBack) {
    letProperty(*control("newsletter")->object(), u"Value", Variant(true));
    ASSERT_TRUE(window.saveValues());

    QFile file(window.valuesFile());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    const FormDocument doc =
        parseFormFile(std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
    ASSERT_EQ(doc.controls.size(), 2u);
    EXPECT_EQ(doc.controls[0].className, u"BooleanBox");
    EXPECT_EQ(doc.controls[0].name, u"newsletter");
    ASSERT_EQ(doc.controls[0].properties.size(), 1u);
    EXPECT_EQ(doc.controls[0].properties[0].first, u"Value");
    EXPECT_EQ(doc.controls[0].properties[0].second.toBoolean().raw, -1);
    EXPECT_EQ(doc.controls[1].properties[0].second.toBoolean().raw, 0);

    letProperty(*control("newsletter")->object(), u"Value", Variant(false));
    EXPECT_EQ(value("newsletter"), u"False");
    ASSERT_TRUE(window.loadValues());
    EXPECT_EQ(value("newsletter"), u"True");
    EXPECT_EQ(boxOf("newsletter")->checkState(), Qt::Checked);
}

TEST_F(GalleryQt, shouldReportAMissingValuesFile) {
    EXPECT_FALSE(window.loadValues());
    EXPECT_TRUE(window.eventLog().last().startsWith(QStringLiteral("Load values failed")));
}

TEST_F(GalleryQt, shouldStoreAndRestoreEveryControlByName) {
    letProperty(*control("newsletter")->object(), u"Value", Variant(true));
    window.storeAll();
    letProperty(*control("newsletter")->object(), u"Value", Variant(false));
    window.restoreAll();
    EXPECT_EQ(value("newsletter"), u"True");
    EXPECT_TRUE(window.eventLog().contains(QStringLiteral("newsletter.Store")));
    EXPECT_TRUE(window.eventLog().contains(QStringLiteral("newsletter.Restore")));
}

TEST_F(GalleryQt, shouldReadFalseOnceTheEnableSwitchIsOff) {
    letProperty(*control("onlyWhenEnabled")->object(), u"Value", Variant(true));
    QCheckBox* enable = window.enableSwitch(QStringLiteral("onlyWhenEnabled"));
    ASSERT_NE(enable, nullptr);
    QTest::mouseClick(enable, Qt::LeftButton, Qt::NoModifier, indicatorCentre(enable));
    EXPECT_FALSE(enable->isChecked());
    EXPECT_FALSE(boxOf("onlyWhenEnabled")->isEnabled());
    EXPECT_EQ(value("onlyWhenEnabled"), u"False");
    EXPECT_TRUE(window.valuesText().contains(QStringLiteral("onlyWhenEnabled = False")));
}

TEST_F(GalleryQt, shouldSetTheHostsLocaleFromTheLocaleSwitch) {
    auto* locale = window.findChild<QComboBox*>(QStringLiteral("locale"));
    ASSERT_NE(locale, nullptr);
    locale->setCurrentIndex(1);
    EXPECT_EQ(host.localeId(), LocaleJapanese);
    locale->setCurrentIndex(0);
    EXPECT_EQ(host.localeId(), LocaleEnglishUS);
}

}  // namespace
}  // namespace corvex::qt::testing
