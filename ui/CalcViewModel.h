#pragma once

#include <QtQml/qqmlregistration.h>

#include <QObject>
#include <QString>

#include "CalcEntryListModel.h"
#include "calc/CalcModel.h"

class QQmlEngine;
class QJSEngine;

namespace vantrelle {

// The calculator panel's face (`Calc` in QML): the line being typed, its answer, and the lines before it.
class CalcViewModel final : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(Calc)
    QML_SINGLETON
    Q_PROPERTY(QString input READ input WRITE setInput NOTIFY changed)
    Q_PROPERTY(QString answer READ answer NOTIFY changed)
    Q_PROPERTY(QString detail READ detail NOTIFY changed)
    Q_PROPERTY(bool isError READ isError NOTIFY changed)
    Q_PROPERTY(bool waiting READ waiting NOTIFY changed)
    Q_PROPERTY(vantrelle::CalcEntryListModel* entries READ entries CONSTANT)
    Q_PROPERTY(QString previousAnswer READ previousAnswer NOTIFY changed)

public:
    explicit CalcViewModel(CalcModel& model);
    // The instance the composition root gave the engine.
    static CalcViewModel* create(QQmlEngine* engine, QJSEngine*);

    [[nodiscard]] QString input() const { return QString::fromStdString(m_model.input()); }
    void setInput(const QString& text) { m_model.setInput(text.toStdString()); }
    [[nodiscard]] QString answer() const;
    [[nodiscard]] QString detail() const;
    [[nodiscard]] bool isError() const { return m_model.liveResult() && m_model.liveResult()->isError(); }
    [[nodiscard]] bool waiting() const { return m_model.isWaitingForRates(); }
    [[nodiscard]] CalcEntryListModel* entries() { return &m_entries; }
    [[nodiscard]] QString previousAnswer() const;

    Q_INVOKABLE bool commit() { return m_model.commit(); }
    Q_INVOKABLE void clearHistory() { m_model.clearHistory(); }
    Q_INVOKABLE void recall(int index);
    Q_INVOKABLE static void copy(const QString& text);

Q_SIGNALS:
    void changed();

private:
    void refreshEntries();

    CalcModel& m_model;
    CalcEntryListModel m_entries;
    Connection m_connection;
};

}  // namespace vantrelle
