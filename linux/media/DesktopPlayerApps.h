#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <optional>

#include "media/PlayerApps.h"

namespace vantrelle {

// The installed players, found by their .desktop files in the XDG application folders and started the
// way the file says. Spotify by its own entries; for the other source the first of the common music
// players that is installed.
class DesktopPlayerApps final : public PlayerApps {
public:
    struct Entry {
        QString name;
        QString program;
        QStringList arguments;
    };
    // Finds a desktop file by its id; the default looks in the XDG application folders.
    using Locate = std::function<QString(const QString& desktopId)>;
    using Start = std::function<bool(const QString& program, const QStringList& arguments)>;

    DesktopPlayerApps();
    DesktopPlayerApps(Locate locate, Start start);

    [[nodiscard]] std::optional<std::string> installedName(MediaSource source) const override;
    void open(MediaSource source) override;

    [[nodiscard]] static const QStringList& desktopIds(MediaSource source);
    // The entry's name and its command line without field codes; nothing for a file that can't be run.
    [[nodiscard]] static std::optional<Entry> readEntry(const QString& file);
    [[nodiscard]] static QStringList splitExec(const QString& exec);

private:
    [[nodiscard]] std::optional<Entry> find(MediaSource source) const;

    Locate m_locate;
    Start m_start;
};

}  // namespace vantrelle
