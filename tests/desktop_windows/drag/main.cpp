// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QDrag>
#include <QLabel>
#include <QMimeData>
#include <QTimer>
#include <QUrl>

namespace {

class Source : public QLabel {
public:
    using QLabel::QLabel;

protected:
    void mousePressEvent(QMouseEvent*) override {
        auto* dragged = new QMimeData;
        QList<QUrl> files;
        for (const QString& path : QApplication::arguments().mid(1)) files << QUrl::fromLocalFile(path);
        dragged->setUrls(files);
        auto* drag = new QDrag(this);
        drag->setMimeData(dragged);
        drag->exec(Qt::CopyAction);
        QTimer::singleShot(1000, this, [this] { close(); });  // the target fetches the files after the drop
    }
};

}  // namespace

/// desktop_drag FILE...: a file manager's part in drag and drop. The files hang on the pointer once it is
/// pressed in the window.
int main(int argc, char** argv) {
    QApplication application(argc, argv);
    Source source(QStringLiteral("files"));
    source.setWindowTitle(QStringLiteral("files to drag"));
    source.setGeometry(1100, 900, 120, 80);
    source.show();
    return QApplication::exec();
}
