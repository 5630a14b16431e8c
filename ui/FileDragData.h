#pragma once

#include <QtQml/qqmlregistration.h>

#include <QMimeData>
#include <QObject>
#include <QQuickItem>
#include <memory>

#include "files/ShelfStore.h"

namespace vantrelle {

// What a file dragged out of the shelf carries: its address as a URI list and in GNOME's copied-files
// form (what file managers paste), and, for a file up to the content limit, its bytes under its own
// MIME type for apps that take only data. The bytes are read when a drop target asks for them, and not
// at all if the file has grown past the limit by then.
class FileMimeData final : public QMimeData {
    Q_OBJECT

public:
    static constexpr const char* kGnomeCopiedFiles = "x-special/gnome-copied-files";

    FileMimeData(QString path, QString contentType, qint64 contentLimit);

    [[nodiscard]] QStringList formats() const override;
    [[nodiscard]] bool hasFormat(const QString& type) const override;
    // The MIME type the bytes are offered under; empty when only the address travels.
    [[nodiscard]] QString contentType() const { return m_contentType; }

protected:
    [[nodiscard]] QVariant retrieveData(const QString& type, QMetaType preferred) const override;

private:
    QString m_path;
    QString m_contentType;
    qint64 m_contentLimit;
};

// Starts drags of shelf files from QML (`FileDrag`).
class FileDragData final : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(FileDrag)
    QML_SINGLETON

public:
    explicit FileDragData(QObject* parent = nullptr) : QObject(parent) {}

    // The drag's data for a local file; null for a path that names no readable regular file.
    [[nodiscard]] static std::unique_ptr<FileMimeData> make(
        const QString& path, qint64 contentLimit = ShelfStore::kDragContentLimit);

    // Drags the file at `url` (a file URL) out of `source`, copying; returns when it was dropped or
    // given up. The source's pointer grab is released afterwards, since the drag took the release.
    Q_INVOKABLE void start(QQuickItem* source, const QString& url);
};

}  // namespace vantrelle
