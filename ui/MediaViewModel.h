#pragma once

#include <QtQml/qqmlregistration.h>

#include <QObject>
#include <QString>
#include <memory>

#include "MediaArtworkImageProvider.h"
#include "media/MediaController.h"
#include "media/PlayerApps.h"

class QQmlEngine;
class QJSEngine;

namespace vantrelle {

// The music panel's and tile's face (`Media` in QML): what plays, where it is, the controls, and a way
// to open an installed player when none runs.
class MediaViewModel final : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(Media)
    QML_SINGLETON
    Q_PROPERTY(bool hasTrack READ hasTrack NOTIFY trackChanged)
    Q_PROPERTY(QString title READ title NOTIFY trackChanged)
    Q_PROPERTY(QString artist READ artist NOTIFY trackChanged)
    Q_PROPERTY(QString album READ album NOTIFY trackChanged)
    Q_PROPERTY(bool playing READ playing NOTIFY trackChanged)
    Q_PROPERTY(double progress READ progress NOTIFY trackChanged)
    Q_PROPERTY(QString positionText READ positionText NOTIFY trackChanged)
    Q_PROPERTY(QString durationText READ durationText NOTIFY trackChanged)
    Q_PROPERTY(QString playerName READ playerName NOTIFY trackChanged)
    Q_PROPERTY(QString openableName READ openableName NOTIFY trackChanged)
    Q_PROPERTY(QString artworkUrl READ artworkUrl NOTIFY artworkChanged)
    Q_PROPERTY(bool active READ active WRITE setActive NOTIFY activeChanged)

public:
    MediaViewModel(MediaController& controller, PlayerApps& apps);
    static MediaViewModel* create(QQmlEngine* engine, QJSEngine*);

    // The image provider for "image://media/…"; the engine takes it over.
    [[nodiscard]] MediaArtworkImageProvider* makeImageProvider() const;

    [[nodiscard]] bool hasTrack() const { return m_controller.track().has_value(); }
    [[nodiscard]] QString title() const;
    [[nodiscard]] QString artist() const;
    [[nodiscard]] QString album() const;
    [[nodiscard]] bool playing() const { return hasTrack() && m_controller.track()->isPlaying; }
    [[nodiscard]] double progress() const;
    [[nodiscard]] QString positionText() const;
    [[nodiscard]] QString durationText() const;
    [[nodiscard]] QString playerName() const { return QString::fromStdString(m_controller.playerName()); }
    [[nodiscard]] QString openableName() const { return m_openableName; }
    [[nodiscard]] QString artworkUrl() const;
    [[nodiscard]] bool active() const { return m_controller.isActive(); }
    void setActive(bool active);

    Q_INVOKABLE void playPause() { m_controller.playPause(); }
    Q_INVOKABLE void next() { m_controller.nextTrack(); }
    Q_INVOKABLE void previous() { m_controller.previousTrack(); }
    // A point on the progress bar, 0 to 1.
    Q_INVOKABLE void seekTo(double fraction);
    Q_INVOKABLE void openPlayer();

Q_SIGNALS:
    void trackChanged();
    void artworkChanged();
    void activeChanged();

private:
    void refreshOpenable();

    MediaController& m_controller;
    PlayerApps& m_apps;
    std::shared_ptr<MediaArtworkSlot> m_artwork = std::make_shared<MediaArtworkSlot>();
    int m_artworkGeneration = 0;
    bool m_trackKnown = false;
    QString m_openableName;
    std::optional<MediaSource> m_openableSource;
    Connection m_trackConnection;
    Connection m_artworkConnection;
};

}  // namespace vantrelle
