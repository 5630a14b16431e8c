#include "media/DesktopPlayerApps.h"

#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTextStream>

#include "support/DebugLog.h"

namespace vantrelle {

DesktopPlayerApps::DesktopPlayerApps()
    : DesktopPlayerApps(
          [](const QString& id) { return QStandardPaths::locate(QStandardPaths::ApplicationsLocation, id); },
          [](const QString& program, const QStringList& arguments) {
              return QProcess::startDetached(program, arguments);
          }) {}

DesktopPlayerApps::DesktopPlayerApps(Locate locate, Start start)
    : m_locate(std::move(locate)), m_start(std::move(start)) {}

const QStringList& DesktopPlayerApps::desktopIds(MediaSource source) {
    static const QStringList spotify{QStringLiteral("spotify.desktop"),
                                     QStringLiteral("com.spotify.Client.desktop"),
                                     QStringLiteral("spotify_spotify.desktop")};
    static const QStringList music{QStringLiteral("org.gnome.Rhythmbox3.desktop"),
                                   QStringLiteral("rhythmbox.desktop"),
                                   QStringLiteral("org.kde.elisa.desktop"),
                                   QStringLiteral("org.gnome.Lollypop.desktop"),
                                   QStringLiteral("org.gnome.Music.desktop"),
                                   QStringLiteral("org.strawberrymusicplayer.strawberry.desktop"),
                                   QStringLiteral("clementine.desktop"),
                                   QStringLiteral("audacious.desktop"),
                                   QStringLiteral("io.github.quodlibet.QuodLibet.desktop"),
                                   QStringLiteral("vlc.desktop")};
    return source == MediaSource::spotify ? spotify : music;
}

QStringList DesktopPlayerApps::splitExec(const QString& exec) {
    QStringList parts;
    QString current;
    bool quoted = false;
    bool any = false;
    for (qsizetype i = 0; i < exec.size(); ++i) {
        const QChar c = exec.at(i);
        if (c == QLatin1Char('"')) {
            quoted = !quoted;
            any = true;
        } else if (c == QLatin1Char('\\') && quoted && i + 1 < exec.size()) {
            current += exec.at(++i);
        } else if (c.isSpace() && !quoted) {
            if (any || !current.isEmpty()) parts << current;
            current.clear();
            any = false;
        } else {
            current += c;
        }
    }
    if (any || !current.isEmpty()) parts << current;
    // Field codes stand for files or URLs to open; the player is opened without any.
    parts.removeIf([](const QString& part) { return part.size() == 2 && part.startsWith(QLatin1Char('%')); });
    return parts;
}

std::optional<DesktopPlayerApps::Entry> DesktopPlayerApps::readEntry(const QString& file) {
    QFile input(file);
    if (!input.open(QIODevice::ReadOnly | QIODevice::Text)) return std::nullopt;
    QTextStream lines(&input);
    bool inEntry = false;
    Entry entry;
    bool hidden = false;
    while (!lines.atEnd()) {
        const QString line = lines.readLine().trimmed();
        if (line.startsWith(QLatin1Char('['))) {
            inEntry = line == QStringLiteral("[Desktop Entry]");
            continue;
        }
        if (!inEntry) continue;
        if (line.startsWith(QStringLiteral("Name="))) entry.name = line.mid(5);
        if (line.startsWith(QStringLiteral("Hidden="))) hidden = line.mid(7) == QStringLiteral("true");
        if (line.startsWith(QStringLiteral("Exec="))) {
            const QStringList parts = splitExec(line.mid(5));
            if (!parts.isEmpty()) {
                entry.program = parts.constFirst();
                entry.arguments = parts.mid(1);
            }
        }
    }
    if (hidden || entry.program.isEmpty()) return std::nullopt;
    return entry;
}

std::optional<DesktopPlayerApps::Entry> DesktopPlayerApps::find(MediaSource source) const {
    for (const QString& id : desktopIds(source)) {
        const QString file = m_locate(id);
        if (file.isEmpty()) continue;
        if (auto entry = readEntry(file)) return entry;
    }
    return std::nullopt;
}

std::optional<std::string> DesktopPlayerApps::installedName(MediaSource source) const {
    const auto entry = find(source);
    if (!entry) return std::nullopt;
    return entry->name.isEmpty() ? std::string(rawName(source)) : entry->name.toStdString();
}

void DesktopPlayerApps::open(MediaSource source) {
    const auto entry = find(source);
    if (!entry) return;
    const bool started = m_start(entry->program, entry->arguments);
    DebugLog::write([&] {
        return "media: open " + entry->program.toStdString() +
               (started ? std::string() : std::string(" failed"));
    });
}

}  // namespace vantrelle
