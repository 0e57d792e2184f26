// FileNameBox on the Qt host: files dragged from a file manager (text/uri-list) arrive as
// Windows names through the drive map, the first one taken; a plain text drop stays Qt's;
// names are looked up in this machine's file system.
#include <gtest/gtest.h>

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QTest>
#include <QUrl>

#include "corvex/files/file_name_box.h"
#include "corvex/library/memory_bag.h"
#include "corvex/qt/widget.h"
#include "qt_harness.h"
#include "support/temp_tree.h"

namespace corvex::qt::testing {
namespace {

using corvex::testing::QtHarness;

class FileNameBoxQt : public ::testing::Test {
protected:
    FileNameBoxQt() {
        posix::DriveMap map;
        map.map(u"T:", tree.root());
        h.host().setDriveMap(map);
    }
    FileNameBox& loaded(const std::u16string& name = u"f") {
        MemoryBag bag;
        return static_cast<FileNameBox&>(h.load(FileNameBox::staticClassInfo(), name, bag));
    }
    QLineEdit* edit(const std::u16string& name = u"f") {
        return qobject_cast<QLineEdit*>(h.innerWidget(name, u"txtInput").qtWidget());
    }
    // Drags mime onto the box and drops it there, as a file manager does; returns whether
    // the box accepted the drag.
    bool dragAndDrop(QWidget* target, const QMimeData& mime) {
        const QPoint at = target->rect().center();
        QDragEnterEvent enter(at, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(target, &enter);
        if (!enter.isAccepted()) return false;
        QDropEvent drop(QPointF(at), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(target, &drop);
        return drop.isAccepted();
    }

    corvex::testing::TempTree tree;
    QtHarness h;
};

TEST_F(FileNameBoxQt, shouldTakeTheFirstDroppedFileByItsWindowsName) {
    FileNameBox& f = loaded();
    QMimeData mime;
    mime.setUrls({QUrl::fromLocalFile(QString::fromStdString(tree.root() + "/Data/report.txt")),
                  QUrl::fromLocalFile(QString::fromStdString(tree.root() + "/Data/README")),
                  QUrl::fromLocalFile(QString::fromStdString(tree.root() + "/my.dir"))});
    EXPECT_TRUE(dragAndDrop(edit(), mime));
    EXPECT_EQ(f.text(), u"T:\\Data\\report.txt");
    EXPECT_EQ(edit()->text(), QStringLiteral("T:\\Data\\report.txt"));
}

TEST_F(FileNameBoxQt, shouldNameAFileOutsideEveryMappedFolderUnderZ) {
    FileNameBox& f = loaded();
    QMimeData mime;
    mime.setUrls({QUrl::fromLocalFile(QStringLiteral("/etc/hosts"))});
    EXPECT_TRUE(dragAndDrop(edit(), mime));
    EXPECT_EQ(f.text(), u"Z:\\etc\\hosts");
}

TEST_F(FileNameBoxQt, shouldLeaveARemoteUrlDropToQt) {
    FileNameBox& f = loaded();
    f.setText(u"C:\\before");
    QMimeData mime;
    mime.setUrls({QUrl(QStringLiteral("https://example.invalid/a.txt"))});
    dragAndDrop(edit(), mime);
    EXPECT_NE(f.text(), u"https://example.invalid/a.txt") << "not taken as a file";
}

TEST_F(FileNameBoxQt, shouldCheckExistenceInTheMachinesFileSystem) {
    FileNameBox& f = loaded();
    f.setMessageShow(false);
    f.setMode(CheckExistsMode::FolderOnly);
    f.setText(u"t:\\DATA");
    EXPECT_TRUE(f.validateValue());
    EXPECT_EQ(f.longFileName(), u"t:\\Data");
    f.setText(u"T:\\Data\\report.txt");
    EXPECT_FALSE(f.validateValue());
}

}  // namespace
}  // namespace corvex::qt::testing
