#include "MediaViewModel.h"

#include <QQmlEngine>

#include "ShellEngine.h"
#include "media/PlaybackTime.h"

namespace vantrelle {

MediaViewModel::MediaViewModel(MediaController& controller, PlayerApps& apps)
    : m_controller(controller), m_apps(apps) {
    m_trackConnection = m_controller.trackChanged.connect([this] {
        // The installed players are looked up again only when a track comes or goes, not on every tick.
        if (hasTrack() != m_trackKnown) refreshOpenable();
        Q_EMIT trackChanged();
    });
    m_artworkConnection = m_controller.artworkChanged.connect([this] {
        m_artwork->set(m_controller.artwork());
        ++m_artworkGeneration;  // a new URL makes the views load the new image
        Q_EMIT artworkChanged();
    });
    m_artwork->set(m_controller.artwork());
    refreshOpenable();
}

MediaViewModel* MediaViewModel::create(QQmlEngine* engine, QJSEngine*) {
    auto* model = ShellEngine::provide(engine, &ShellEngine::ViewModels::media);
    // The views draw the artwork through "image://media/…", served from this model's slot.
    if (model && !engine->imageProvider(QStringLiteral("media"))) {
        engine->addImageProvider(QStringLiteral("media"), model->makeImageProvider());
    }
    return model;
}

MediaArtworkImageProvider* MediaViewModel::makeImageProvider() const {
    return new MediaArtworkImageProvider(m_artwork);
}

QString MediaViewModel::title() const {
    return hasTrack() ? QString::fromStdString(m_controller.track()->title) : QString();
}

QString MediaViewModel::artist() const {
    return hasTrack() ? QString::fromStdString(m_controller.track()->artist) : QString();
}

QString MediaViewModel::album() const {
    return hasTrack() ? QString::fromStdString(m_controller.track()->album) : QString();
}

double MediaViewModel::progress() const {
    if (!hasTrack() || m_controller.track()->duration <= 0) return 0;
    return std::clamp(m_controller.track()->position / m_controller.track()->duration, 0.0, 1.0);
}

QString MediaViewModel::positionText() const {
    return QString::fromStdString(formatPlaybackTime(hasTrack() ? m_controller.track()->position : 0));
}

QString MediaViewModel::durationText() const {
    return QString::fromStdString(formatPlaybackTime(hasTrack() ? m_controller.track()->duration : 0));
}

QString MediaViewModel::artworkUrl() const {
    if (!m_controller.artwork()) return {};
    return QStringLiteral("image://media/") + QString::number(m_artworkGeneration);
}

void MediaViewModel::setActive(bool active) {
    if (active == m_controller.isActive()) return;
    m_controller.setActive(active);
    Q_EMIT activeChanged();
}

void MediaViewModel::seekTo(double fraction) {
    if (!hasTrack()) return;
    m_controller.seek(std::clamp(fraction, 0.0, 1.0) * m_controller.track()->duration);
}

void MediaViewModel::refreshOpenable() {
    m_trackKnown = hasTrack();
    m_openableName.clear();
    m_openableSource.reset();
    if (m_trackKnown) return;
    // Spotify first: it is the player named on its own; the other source is whatever else is installed.
    for (auto source : {MediaSource::spotify, MediaSource::music}) {
        if (m_controller.provider().isRunning(source)) continue;
        if (auto name = m_apps.installedName(source)) {
            m_openableName = QString::fromStdString(*name);
            m_openableSource = source;
            return;
        }
    }
}

void MediaViewModel::openPlayer() {
    if (m_openableSource) m_apps.open(*m_openableSource);
}

}  // namespace vantrelle
