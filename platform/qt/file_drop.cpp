#include "file_drop.h"

#include <QDragEnterEvent>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <vector>

#include "corvex/qt/host.h"
#include "corvex/qt/text_box.h"

namespace corvex::qt {

namespace {

// The local files among a drag's URLs, in the drag's order.
std::vector<std::string> localFiles(const QMimeData* mime) {
    std::vector<std::string> files;
    if (!mime || !mime->hasUrls()) return files;
    for (const QUrl& url : mime->urls()) {
        if (url.isLocalFile()) files.push_back(url.toLocalFile().toStdString());
    }
    return files;
}

}  // namespace

// Watches the box's Qt widget: a drag of local files is accepted, and their drop becomes
// the control's FilesDropped instead of the URLs' text Qt would insert.
class FileDrop : public QObject {
public:
    FileDrop(QtTextBox& box, QtHost& host) : QObject(box.qtWidget()), box_(box), host_(host) {}

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        switch (event->type()) {
            case QEvent::DragEnter:
            case QEvent::DragMove: {
                auto* drag = static_cast<QDragMoveEvent*>(event);
                if (localFiles(drag->mimeData()).empty()) break;
                drag->acceptProposedAction();
                return true;
            }
            case QEvent::Drop: {
                auto* drop = static_cast<QDropEvent*>(event);
                const std::vector<std::string> files = localFiles(drop->mimeData());
                if (files.empty()) break;
                drop->acceptProposedAction();
                WidgetEvent e;
                e.type = WidgetEventType::FilesDropped;
                for (const std::string& f : files) e.files.push_back(host_.droppedName(f));
                box_.notifyFromQt(e);
                return true;
            }
            default:
                break;
        }
        return QObject::eventFilter(watched, event);
    }

private:
    QtTextBox& box_;
    QtHost& host_;
};

void installFileDrop(QtTextBox& box, QtHost& host) {
    box.qtWidget()->setAcceptDrops(true);
    box.qtWidget()->installEventFilter(new FileDrop(box, host));
}

}  // namespace corvex::qt
