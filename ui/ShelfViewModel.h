#pragma once

#include <QtQml/qqmlregistration.h>

#include <QObject>
#include <QString>
#include <QVariantList>

#include "ShelfItemListModel.h"
#include "files/ShelfStore.h"

class QQmlEngine;
class QJSEngine;

namespace vantrelle {

// The Shelf panel's face (`Shelf` in QML): the items, the open conversion strip and its options, and
// the message line. Thumbnails are the views' own: an asynchronous Image decodes them off the main
// thread and Qt's pixmap cache keeps them.
class ShelfViewModel final : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(Shelf)
    QML_SINGLETON
    Q_PROPERTY(vantrelle::ShelfItemListModel* items READ items CONSTANT)
    Q_PROPERTY(QString message READ message NOTIFY changed)
    Q_PROPERTY(QString convertingId READ convertingId NOTIFY changed)
    Q_PROPERTY(QVariantList conversions READ conversions NOTIFY changed)

public:
    explicit ShelfViewModel(ShelfStore& store);
    static ShelfViewModel* create(QQmlEngine* engine, QJSEngine*);

    [[nodiscard]] ShelfItemListModel* items() { return &m_items; }
    [[nodiscard]] QString message() const;
    [[nodiscard]] QString convertingId() const;
    // For the open strip: [{raw, title}] in the order the strip shows them.
    [[nodiscard]] QVariantList conversions() const { return m_conversions; }

    Q_INVOKABLE void remove(const QString& id) { m_store.remove(id.toStdString()); }
    Q_INVOKABLE void clear() { m_store.clear(); }
    // Opens the strip under an item, or closes it when it is already open there.
    Q_INVOKABLE void toggleConversions(const QString& id);
    Q_INVOKABLE void convert(const QString& id, const QString& raw);
    Q_INVOKABLE void addUrls(const QStringList& urls);

Q_SIGNALS:
    void changed();

private:
    void refresh();

    ShelfStore& m_store;
    ShelfItemListModel m_items;
    QVariantList m_conversions;
    Connection m_connection;
};

}  // namespace vantrelle
