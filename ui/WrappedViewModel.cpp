#include "WrappedViewModel.h"

#include <QDir>

#include "ShellEngine.h"
#include "WrappedCard.h"

namespace vantrelle {

namespace {

QString text(const std::string& value) {
    return QString::fromStdString(value);
}

}  // namespace

WrappedViewModel::WrappedViewModel(Maker make, QString saveFolder)
    : m_make(std::move(make)), m_saveFolder(std::move(saveFolder)) {}

WrappedViewModel* WrappedViewModel::create(QQmlEngine* engine, QJSEngine*) {
    return ShellEngine::provide(engine, &ShellEngine::ViewModels::wrapped);
}

QStringList WrappedViewModel::periods() {
    return {QStringLiteral("Last week"), QStringLiteral("This week"), QStringLiteral("Last month"),
            QStringLiteral("This month")};
}

void WrappedViewModel::setPeriod(int period) {
    if (period < 0 || period >= static_cast<int>(kWrappedViewPeriods.size()) || period == m_period) return;
    m_period = period;
    m_summary.reset();
    m_savedTo.clear();
    Q_EMIT changed();
}

void WrappedViewModel::refresh() {
    m_summary.reset();
    Q_EMIT changed();
}

const WrappedSummary& WrappedViewModel::summary() const {
    if (!m_summary) m_summary = m_make(kWrappedViewPeriods[static_cast<std::size_t>(m_period)]);
    return *m_summary;
}

QString WrappedViewModel::title() const {
    return text(summary().title());
}
QString WrappedViewModel::range() const {
    return text(summary().rangeText());
}
QString WrappedViewModel::focusHours() const {
    return text(summary().focusHoursText());
}
QString WrappedViewModel::focusBlocks() const {
    return QString::number(summary().focusBlocks);
}
QString WrappedViewModel::meetings() const {
    return QString::number(summary().meetingsJoined);
}
QString WrappedViewModel::cursor() const {
    return text(summary().cursorText());
}
QString WrappedViewModel::headline() const {
    return text(summary().cursorMilestone());
}

QString WrappedViewModel::tokens() const {
    const double tokens = static_cast<double>(summary().aiTokens);
    if (tokens >= 1e6) return QStringLiteral("%1M").arg(tokens / 1e6, 0, 'f', 1);
    if (tokens >= 1e3) return QStringLiteral("%1K").arg(tokens / 1e3, 0, 'f', 1);
    return QString::number(summary().aiTokens);
}

QString WrappedViewModel::topApp() const {
    const auto& top = summary().topApp;
    return top ? QStringLiteral("%1 · %2 h").arg(text(top->name)).arg(top->hours, 0, 'f', 1)
               : QStringLiteral("—");
}

QString WrappedViewModel::topProject() const {
    const auto& top = summary().topProject;
    return top ? text(top->name) : QStringLiteral("—");
}

QString WrappedViewModel::bestDay() const {
    const auto day = summary().mostFocusedDayText();
    return day ? text(*day) : QStringLiteral("—");
}

QString WrappedViewModel::saveImage() {
    const QString name =
        QStringLiteral("Vantrelle Wrapped %1.png")
            .arg(text(std::string(rawName(kWrappedViewPeriods[static_cast<std::size_t>(m_period)]))));
    const QString path = QDir(m_saveFolder).filePath(name);
    m_savedTo = WrappedCard::savePng(summary(), path) ? path : QString();
    Q_EMIT changed();
    return m_savedTo;
}

}  // namespace vantrelle
