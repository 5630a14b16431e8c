#pragma once

#include <QtQml/qqmlregistration.h>

#include <QObject>
#include <QString>
#include <functional>

#include "ChoiceListModel.h"
#include "app/SupportMail.h"
#include "support/AppPaths.h"

class QQmlEngine;
class QJSEngine;

namespace vantrelle {

// The Support tool's face (`Support` in QML): the version, the program's folders with a way to open
// them, the debug log when one is written, and a form that hands a mail to the desktop's mail program.
class SupportViewModel final : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(Support)
    QML_SINGLETON
    Q_PROPERTY(QString version READ version CONSTANT)
    Q_PROPERTY(QString address READ address CONSTANT)
    Q_PROPERTY(vantrelle::ChoiceListModel* folders READ folders CONSTANT)
    Q_PROPERTY(QString debugLog READ debugLog CONSTANT)
    Q_PROPERTY(QString status READ status NOTIFY statusChanged)

public:
    struct Dependencies {
        AppPaths paths;
        std::string debugLogFile;  // empty when no log is written
        SupportContext context;
        // Hands a URL to the desktop (a folder, a file, a mailto: link); false when nothing took it.
        std::function<bool(const QString& url)> openUrl;
    };

    explicit SupportViewModel(Dependencies dependencies);
    // The instance the composition root gave the engine.
    static SupportViewModel* create(QQmlEngine* engine, QJSEngine*);

    [[nodiscard]] QString version() const { return QString::fromStdString(m_d.context.version); }
    [[nodiscard]] static QString address();
    [[nodiscard]] ChoiceListModel* folders() { return &m_folders; }
    [[nodiscard]] QString debugLog() const { return QString::fromStdString(m_d.debugLogFile); }
    [[nodiscard]] QString status() const { return m_status; }

    // Opens a folder of the list (its raw value is its path) in the file manager.
    Q_INVOKABLE void openFolder(const QString& path);
    Q_INVOKABLE void openDebugLog();
    // Composes the mail in the desktop's mail program; the status line says whether one took it.
    Q_INVOKABLE void sendMail(const QString& subject, const QString& message);

Q_SIGNALS:
    void statusChanged();

private:
    void setStatus(QString status);

    Dependencies m_d;
    ChoiceListModel m_folders;
    QString m_status;
};

}  // namespace vantrelle
