#pragma once

#include <QtQml/qqmlregistration.h>

#include <QObject>
#include <QString>
#include <QStringList>
#include <functional>
#include <optional>

#include "wrapped/WrappedSummary.h"

class QQmlEngine;
class QJSEngine;

namespace vantrelle {

// The Wrapped view's face (`Wrapped` in QML): one of the four periods, its figures and words, and
// "Save as image".
class WrappedViewModel final : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(Wrapped)
    QML_SINGLETON
    Q_PROPERTY(QStringList periods READ periods CONSTANT)
    Q_PROPERTY(int period READ period WRITE setPeriod NOTIFY changed)
    Q_PROPERTY(QString title READ title NOTIFY changed)
    Q_PROPERTY(QString range READ range NOTIFY changed)
    Q_PROPERTY(QString focusHours READ focusHours NOTIFY changed)
    Q_PROPERTY(QString focusBlocks READ focusBlocks NOTIFY changed)
    Q_PROPERTY(QString meetings READ meetings NOTIFY changed)
    Q_PROPERTY(QString tokens READ tokens NOTIFY changed)
    Q_PROPERTY(QString cursor READ cursor NOTIFY changed)
    Q_PROPERTY(QString headline READ headline NOTIFY changed)
    Q_PROPERTY(QString topApp READ topApp NOTIFY changed)
    Q_PROPERTY(QString topProject READ topProject NOTIFY changed)
    Q_PROPERTY(QString bestDay READ bestDay NOTIFY changed)
    Q_PROPERTY(bool partial READ partial NOTIFY changed)
    Q_PROPERTY(QString savedTo READ savedTo NOTIFY changed)

public:
    using Maker = std::function<WrappedSummary(WrappedPeriod)>;
    // `make` builds a summary of a period as of now; `saveFolder` is where "Save as image" writes.
    WrappedViewModel(Maker make, QString saveFolder);
    static WrappedViewModel* create(QQmlEngine* engine, QJSEngine*);

    [[nodiscard]] static QStringList periods();
    [[nodiscard]] int period() const { return m_period; }
    void setPeriod(int period);
    [[nodiscard]] QString title() const;
    [[nodiscard]] QString range() const;
    [[nodiscard]] QString focusHours() const;
    [[nodiscard]] QString focusBlocks() const;
    [[nodiscard]] QString meetings() const;
    [[nodiscard]] QString tokens() const;
    [[nodiscard]] QString cursor() const;
    [[nodiscard]] QString headline() const;
    [[nodiscard]] QString topApp() const;
    [[nodiscard]] QString topProject() const;
    [[nodiscard]] QString bestDay() const;
    [[nodiscard]] bool partial() const { return summary().partialSince.has_value(); }
    [[nodiscard]] QString savedTo() const { return m_savedTo; }

    // Makes the figures again, as of now.
    Q_INVOKABLE void refresh();
    // Writes the card of the period shown as PNG into the save folder; gives the file, or "" on failure.
    Q_INVOKABLE QString saveImage();

Q_SIGNALS:
    void changed();

private:
    [[nodiscard]] const WrappedSummary& summary() const;

    Maker m_make;
    QString m_saveFolder;
    int m_period = 0;
    mutable std::optional<WrappedSummary> m_summary;
    QString m_savedTo;
};

}  // namespace vantrelle
