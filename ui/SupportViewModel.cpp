#include "SupportViewModel.h"

#include <QUrl>

#include "ShellEngine.h"
#include "ShellModel.h"
#include "support/DebugLog.h"

namespace vantrelle {

namespace {

ChoiceListModel::Row folderRow(const char* title, const std::filesystem::path& path) {
    const QString text = QString::fromStdString(path.string());
    return {text, QString::fromUtf8(title), ShellModel::glyph(std::string("folder")), text, {}, true};
}

}  // namespace

SupportViewModel::SupportViewModel(Dependencies dependencies) : m_d(std::move(dependencies)) {
    m_folders.setRows({folderRow("Data", m_d.paths.dataRoot()), folderRow("Settings", m_d.paths.configRoot()),
                       folderRow("Cache", m_d.paths.cacheRoot())});
}

SupportViewModel* SupportViewModel::create(QQmlEngine* engine, QJSEngine*) {
    return ShellEngine::provide(engine, &ShellEngine::ViewModels::support);
}

QString SupportViewModel::address() {
    return QString::fromUtf8(kSupportAddress.data(), static_cast<qsizetype>(kSupportAddress.size()));
}

void SupportViewModel::openFolder(const QString& path) {
    // Only the folders offered; a folder not made yet is made, so there is something to show.
    for (const auto& row : m_folders.rows()) {
        if (row.raw != path) continue;
        std::error_code error;
        std::filesystem::create_directories(path.toStdString(), error);
        if (!m_d.openUrl(QUrl::fromLocalFile(path).toString()))
            setStatus(QStringLiteral("No file manager opened it."));
        return;
    }
}

void SupportViewModel::openDebugLog() {
    if (m_d.debugLogFile.empty()) return;
    if (!m_d.openUrl(QUrl::fromLocalFile(debugLog()).toString()))
        setStatus(QStringLiteral("No program opened the log."));
}

void SupportViewModel::sendMail(const QString& subject, const QString& message) {
    const std::string link = supportMailto(subject.toStdString(), message.toStdString(), m_d.context);
    const bool opened = m_d.openUrl(QString::fromStdString(link));
    DebugLog::write([&] {
        return std::string("support: mail ") + (opened ? "handed to the mail program" : "not opened");
    });
    setStatus(opened ? QStringLiteral("Your mail program has the message; send it from there.")
                     : QStringLiteral("No mail program answered. Write to %1.").arg(address()));
}

void SupportViewModel::setStatus(QString status) {
    if (status == m_status) return;
    m_status = std::move(status);
    Q_EMIT statusChanged();
}

}  // namespace vantrelle
