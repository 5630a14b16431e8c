#pragma once

#include <QtQml/qqmlregistration.h>

#include <QObject>
#include <QString>
#include <optional>
#include <string>

#include "NoteListModel.h"
#include "notes/NotesStore.h"

class QQmlEngine;
class QJSEngine;

namespace vantrelle {

// The Notes panel's and tile's face (`Notes` in QML): the list, the open note's text, the latest notes.
class NotesViewModel final : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(Notes)
    QML_SINGLETON
    // Changes only when another note is opened: the editor's own typing flows in, not back out.
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY selectionChanged)
    Q_PROPERTY(QString selectedId READ selectedId NOTIFY selectionChanged)
    Q_PROPERTY(QString savedLabel READ savedLabel NOTIFY changed)
    Q_PROPERTY(int filledCount READ filledCount NOTIFY changed)
    Q_PROPERTY(vantrelle::NoteListModel* notes READ notes CONSTANT)
    Q_PROPERTY(vantrelle::NoteListModel* latest READ latest CONSTANT)

public:
    NotesViewModel(NotesStore& store, const Clock& clock);
    static NotesViewModel* create(QQmlEngine* engine, QJSEngine*);

    [[nodiscard]] QString text() const { return QString::fromStdString(m_store.text()); }
    void setText(const QString& text) { m_store.setText(text.toStdString()); }
    [[nodiscard]] QString selectedId() const;
    [[nodiscard]] QString savedLabel() const;
    [[nodiscard]] int filledCount() const { return static_cast<int>(m_store.nonEmpty().size()); }
    [[nodiscard]] NoteListModel* notes() { return &m_notes; }
    [[nodiscard]] NoteListModel* latest() { return &m_latest; }

    Q_INVOKABLE void newNote() { m_store.newNote(); }
    Q_INVOKABLE void select(const QString& id) { m_store.select(id.toStdString()); }
    Q_INVOKABLE void remove(const QString& id) { m_store.remove(id.toStdString()); }
    // The panel opening and closing.
    Q_INVOKABLE void open() { m_store.ensureSelection(); }
    Q_INVOKABLE void close() { m_store.pruneBlanks(); }

Q_SIGNALS:
    void changed();
    void selectionChanged();

private:
    void refresh();

    NotesStore& m_store;
    const Clock& m_clock;
    NoteListModel m_notes;
    NoteListModel m_latest;
    std::optional<std::string> m_shownSelection;
    Connection m_connection;
};

}  // namespace vantrelle
