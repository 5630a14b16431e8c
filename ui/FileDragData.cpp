#include "FileDragData.h"

#include <QDrag>
#include <QFile>
#include <QFileInfo>
#include <QMimeDatabase>
#include <QPointer>
#include <QQuickItem>
#include <QQuickWindow>
#include <QUrl>

#include "support/DebugLog.h"

namespace vantrelle {

namespace {

const QString kUriList = QStringLiteral("text/uri-list");

}  // namespace

FileMimeData::FileMimeData(QString path, QString contentType, qint64 contentLimit)
    : m_path(std::move(path)), m_contentType(std::move(contentType)), m_contentLimit(contentLimit) {
    setUrls({QUrl::fromLocalFile(m_path)});
}

QStringList FileMimeData::formats() const {
    QStringList list{kUriList, QString::fromLatin1(kGnomeCopiedFiles)};
    if (!m_contentType.isEmpty()) list << m_contentType;
    return list;
}

bool FileMimeData::hasFormat(const QString& type) const {
    return formats().contains(type);
}

QVariant FileMimeData::retrieveData(const QString& type, QMetaType preferred) const {
    if (type == QLatin1String(kGnomeCopiedFiles))
        return QByteArray("copy\n") + QUrl::fromLocalFile(m_path).toEncoded();
    if (!m_contentType.isEmpty() && type == m_contentType) {
        QFile file(m_path);
        // Checked again at read time: the file may have grown since the drag began.
        if (file.size() > m_contentLimit || !file.open(QIODevice::ReadOnly)) {
            DebugLog::write([&] { return "shelf: drag data not read for " + m_path.toStdString(); });
            return QByteArray();
        }
        return file.read(m_contentLimit);
    }
    return QMimeData::retrieveData(type, preferred);
}

std::unique_ptr<FileMimeData> FileDragData::make(const QString& path, qint64 contentLimit) {
    const QFileInfo info(path);
    if (path.isEmpty() || !info.isFile() || !info.isReadable()) return nullptr;
    QString type = QMimeDatabase().mimeTypeForFile(info).name();
    // Only a type of its own: the address formats already stand for themselves.
    if (info.size() > contentLimit || type == kUriList ||
        type == QLatin1String(FileMimeData::kGnomeCopiedFiles))
        type.clear();
    return std::make_unique<FileMimeData>(info.absoluteFilePath(), type, contentLimit);
}

void FileDragData::start(QQuickItem* source, const QString& url) {
    if (!source || !source->window()) return;
    auto data = make(QUrl(url).toLocalFile());
    if (!data) {
        DebugLog::write([&] { return "shelf: nothing to drag at " + url.toStdString(); });
        return;
    }
    // Never deleted here: Qt deletes the drag once the target has fetched the data, which on X11 is
    // after exec() returns. A child of the window, not the tile: the tile may go mid-drag.
    const QPointer<QQuickItem> guard(source);
    auto* drag = new QDrag(source->window());
    drag->setMimeData(data.release());
    drag->exec(Qt::CopyAction);
    if (guard) guard->ungrabMouse();
}

}  // namespace vantrelle
