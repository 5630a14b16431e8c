#pragma once

#include <QtQml/qqmlregistration.h>

#include <QObject>
#include <QString>

#include "ShortcutListModel.h"
#include "shortcuts/ToolShortcuts.h"

class QQmlEngine;
class QJSEngine;

namespace vantrelle {

// The shortcut recorder of the settings (`Shortcuts` in QML): one row per target; a row records the
// next key press typed while it listens. The rules are ToolShortcuts'.
class ShortcutsViewModel final : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(Shortcuts)
    QML_SINGLETON
    Q_PROPERTY(vantrelle::ShortcutListModel* rows READ rows CONSTANT)
    Q_PROPERTY(QString recording READ recording NOTIFY changed)
    Q_PROPERTY(QString message READ message NOTIFY changed)
    Q_PROPERTY(QString recordText READ recordText CONSTANT)

public:
    explicit ShortcutsViewModel(ToolShortcuts& shortcuts);
    // The instance the composition root set on the shell's engine.
    static ShortcutsViewModel* create(QQmlEngine* engine, QJSEngine*);

    [[nodiscard]] ShortcutListModel* rows() { return &m_rows; }
    // The target key of the row listening, empty when none.
    [[nodiscard]] QString recording() const { return m_recording; }
    // What the listening row says: the prompt, or why the last key was refused.
    [[nodiscard]] QString message() const { return m_message; }
    [[nodiscard]] static QString recordText() {
        return QString::fromUtf8(kRecordText.data(), kRecordText.size());
    }

    Q_INVOKABLE void startRecording(const QString& target);
    Q_INVOKABLE void stopRecording();
    // A key typed while a row listens, as Qt reports it. True when the key was used.
    Q_INVOKABLE bool keyPressed(int key, int modifiers);
    Q_INVOKABLE void clear(const QString& target);

    // Qt's key code as an X11 keysym; 0 for keys with none.
    [[nodiscard]] static std::uint32_t keysymOf(int qtKey);

Q_SIGNALS:
    void changed();

private:
    void refreshRows();

    ToolShortcuts& m_shortcuts;
    ShortcutListModel m_rows;
    Connection m_connection;
    QString m_recording;
    QString m_message;
};

}  // namespace vantrelle
