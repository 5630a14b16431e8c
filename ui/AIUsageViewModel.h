#pragma once

#include <QObject>
#include <QString>
#include <QVariantList>
#include <QVariantMap>

#include "agents/AIUsageModel.h"
#include "agents/ClaudeHooks.h"

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
    AIUsageViewModel(AIUsageModel& model, const ClaudeHooks& hooks, const Clock& clock);

    [[nodiscard]] QVariantMap today() const;
    [[nodiscard]] QVariantList days() const;
    [[nodiscard]] QVariantMap block() const;
    [[nodiscard]] QVariantList sessions() const;
    [[nodiscard]] bool scanning() const { return m_model.isScanning(); }
    [[nodiscard]] QString lastScan() const;
    [[nodiscard]] bool hooksInstalled() const { return m_hooksInstalled; }
    [[nodiscard]] QString hookError() const { return m_hookError; }

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
    const ClaudeHooks& m_hooks;
    const Clock& m_clock;
    bool m_hooksInstalled = false;
    QString m_hookError;
    Connection m_changed;
    Connection m_scanning;
};

}  // namespace vantrelle
