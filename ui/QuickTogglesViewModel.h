#pragma once

#include <QtQml/qqmlregistration.h>

#include <QObject>
#include <QString>
#include <functional>

#include "ChoiceListModel.h"
#include "catalog/AppSettings.h"
#include "toggles/QuickToggles.h"

class QQmlEngine;
class QJSEngine;

namespace vantrelle {

// The quick toggles' face (`Toggles` in QML): the chosen toggles this desktop can do, each with its
// state, and the ones it can't with the reason.
class QuickTogglesViewModel final : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(Toggles)
    QML_SINGLETON
    Q_PROPERTY(vantrelle::ChoiceListModel* toggles READ toggles CONSTANT)
    Q_PROPERTY(vantrelle::ChoiceListModel* missing READ missing CONSTANT)

public:
    QuickTogglesViewModel(QuickToggles& toggles, AppSettings& settings, std::function<void()> collapse);
    static QuickTogglesViewModel* create(QQmlEngine* engine, QJSEngine*);

    // Rows: raw, title, icon, detail (the blurb), chosen (a state toggle that is on).
    [[nodiscard]] ChoiceListModel* toggles() { return &m_toggles; }
    // Rows: raw, title, icon, detail (why this desktop can't).
    [[nodiscard]] ChoiceListModel* missing() { return &m_missing; }

    Q_INVOKABLE void perform(const QString& raw);
    // States are read again each time a view that shows them appears.
    Q_INVOKABLE void setShown(bool shown);

private:
    void refreshRows();

    QuickToggles& m_model;
    AppSettings& m_settings;
    std::function<void()> m_collapse;
    ChoiceListModel m_toggles;
    ChoiceListModel m_missing;
    Connection m_modelConnection;
    Connection m_settingsConnection;
    int m_shown = 0;
};

}  // namespace vantrelle
