#pragma once

#include <QObject>
#include <QString>
#include <QVariantList>
#include <QVariantMap>

#include "agents/AIUsageModel.h"
#include "agents/ClaudeHookSwitch.h"

namespace vantrelle {

// The AI Usage panel's face: today's figures, the week, the current 5-hour window and the sessions,
// formatted for display, plus the switch for the Claude Code hooks.
class AIUsageViewModel final : public QObject {
    Q_OBJECT
    Q_PROPERTY(QVariantMap today READ today NOTIFY changed)
    Q_PROPERTY(QVariantList days READ days NOTIFY changed)
    Q_PROPERTY(QVariantMap block READ block NOTIFY changed)
    Q_PROPERTY(QVariantList sessions READ sessions NOTIFY changed)
    Q_PROPERTY(bool scanning READ scanning NOTIFY changed)
    Q_PROPERTY(QString lastScan READ lastScan NOTIFY changed)
    Q_PROPERTY(bool hooksInstalled READ hooksInstalled NOTIFY hooksChanged)
    Q_PROPERTY(QString hookError READ hookError NOTIFY hooksChanged)

public:
    AIUsageViewModel(AIUsageModel& model, ClaudeHookSwitch& hooks, const Clock& clock);

    [[nodiscard]] QVariantMap today() const;
    [[nodiscard]] QVariantList days() const;
    [[nodiscard]] QVariantMap block() const;
    [[nodiscard]] QVariantList sessions() const;
    [[nodiscard]] bool scanning() const { return m_model.isScanning(); }
    [[nodiscard]] QString lastScan() const;
    [[nodiscard]] bool hooksInstalled() const { return m_hooks.isInstalled(); }
    [[nodiscard]] QString hookError() const { return QString::fromStdString(m_hooks.message()); }

    Q_INVOKABLE void refresh() { m_model.rescan(); }
    // The panel is on screen: scan more often while it is.
    Q_INVOKABLE void setShown(bool shown);
    Q_INVOKABLE void setHooksInstalled(bool installed);

    [[nodiscard]] static QString cost(double dollars);

Q_SIGNALS:
    void changed();
    void hooksChanged();

private:
    AIUsageModel& m_model;
    ClaudeHookSwitch& m_hooks;
    const Clock& m_clock;
    Connection m_changed;
    Connection m_scanning;
    Connection m_hooksChanged;
};

}  // namespace vantrelle
