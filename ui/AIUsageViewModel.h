#pragma once

#include <QtQml/qqmlregistration.h>

#include <QObject>
#include <QString>

#include "UsageDayListModel.h"
#include "UsageFigures.h"
#include "UsageSessionListModel.h"
#include "agents/AIUsageModel.h"
#include "agents/ClaudeHookSwitch.h"

class QQmlEngine;
class QJSEngine;

namespace vantrelle {

// The AI Usage panel's face (`AIUsage` in QML): today's figures, the week, the current 5-hour window
// and the sessions, formatted for display, plus the switch for the Claude Code hooks.
class AIUsageViewModel final : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(AIUsage)
    QML_SINGLETON
    Q_PROPERTY(vantrelle::UsageTodayFigures today READ today NOTIFY changed)
    Q_PROPERTY(vantrelle::UsageDayListModel* days READ days CONSTANT)
    Q_PROPERTY(vantrelle::UsageWindowFigures block READ block NOTIFY changed)
    Q_PROPERTY(vantrelle::UsageSessionListModel* sessions READ sessions CONSTANT)
    Q_PROPERTY(bool scanning READ scanning NOTIFY changed)
    Q_PROPERTY(QString lastScan READ lastScan NOTIFY changed)
    Q_PROPERTY(bool hooksInstalled READ hooksInstalled NOTIFY hooksChanged)
    Q_PROPERTY(QString hookError READ hookError NOTIFY hooksChanged)

public:
    AIUsageViewModel(AIUsageModel& model, ClaudeHookSwitch& hooks, const Clock& clock);
    // The instance the composition root gave the engine.
    static AIUsageViewModel* create(QQmlEngine* engine, QJSEngine*);

    [[nodiscard]] UsageTodayFigures today() const;
    [[nodiscard]] UsageDayListModel* days() { return &m_days; }
    [[nodiscard]] UsageWindowFigures block() const;
    [[nodiscard]] UsageSessionListModel* sessions() { return &m_sessions; }
    [[nodiscard]] bool scanning() const { return m_model.isScanning(); }
    [[nodiscard]] QString lastScan() const;
    [[nodiscard]] bool hooksInstalled() const { return m_hooks.isInstalled(); }
    [[nodiscard]] QString hookError() const { return QString::fromStdString(m_hooks.message()); }

    Q_INVOKABLE void refresh() { m_model.rescan(); }
    // The panel is on screen: scan more often while it is.
    Q_INVOKABLE void setShown(bool shown);
    Q_INVOKABLE void setHooksInstalled(bool installed);

Q_SIGNALS:
    void changed();
    void hooksChanged();

private:
    void refreshLists();

    AIUsageModel& m_model;
    ClaudeHookSwitch& m_hooks;
    const Clock& m_clock;
    UsageDayListModel m_days;
    UsageSessionListModel m_sessions;
    Connection m_changed;
    Connection m_scanning;
    Connection m_hooksChanged;
};

}  // namespace vantrelle
