#include "media/MprisTrack.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QStringList>

#include "media/MprisPlayers.h"

namespace vantrelle {

namespace {

QString text(const QVariant& value) {
    if (value.canConvert<QDBusObjectPath>() && value.userType() == qMetaTypeId<QDBusObjectPath>()) {
        return value.value<QDBusObjectPath>().path();
    }
    if (value.userType() == qMetaTypeId<QDBusArgument>()) {
        QStringList list;
        value.value<QDBusArgument>() >> list;
        return list.join(QStringLiteral(", "));
    }
    if (value.userType() == QMetaType::QStringList) return value.toStringList().join(QStringLiteral(", "));
    return value.toString();
}

double seconds(const QVariant& microseconds) {
    bool ok = false;
    const auto value = microseconds.toLongLong(&ok);
    return ok && value > 0 ? static_cast<double>(value) / 1e6 : 0.0;
}

}  // namespace

QVariantMap mprisMetadata(const QVariantMap& properties) {
    const QVariant metadata = properties.value(QStringLiteral("Metadata"));
    if (metadata.userType() == qMetaTypeId<QDBusArgument>()) return qdbus_cast<QVariantMap>(metadata);
    return metadata.toMap();
}

std::optional<NowPlayingTrack> trackFromMpris(const QString& busName, const QVariantMap& properties) {
    const QString status = properties.value(QStringLiteral("PlaybackStatus")).toString();
    const QVariantMap metadata = mprisMetadata(properties);
    if (status == QStringLiteral("Stopped") || status.isEmpty() || metadata.isEmpty()) return std::nullopt;
    NowPlayingTrack track;
    track.title = text(metadata.value(QStringLiteral("xesam:title"))).toStdString();
    track.artist = text(metadata.value(QStringLiteral("xesam:artist"))).toStdString();
    track.album = text(metadata.value(QStringLiteral("xesam:album"))).toStdString();
    track.isPlaying = status == QStringLiteral("Playing");
    track.duration = seconds(metadata.value(QStringLiteral("mpris:length")));
    track.position = std::min(seconds(properties.value(QStringLiteral("Position"))),
                              track.duration > 0 ? track.duration : 1e300);
    track.source = MprisPlayers::sourceOf(busName);
    const QString trackId = text(metadata.value(QStringLiteral("mpris:trackid")));
    if (track.source == MediaSource::spotify) {
        track.artworkKey = "Spotify:" + trackId.toStdString();
    } else {
        // Players reuse track ids across files; the title tells streamed tracks apart, as elsewhere.
        track.artworkKey = busName.mid(MprisPlayers::kPrefix.size()).toStdString() + ":" +
                           trackId.toStdString() + ":" + track.title;
    }
    const QString artUrl = text(metadata.value(QStringLiteral("mpris:artUrl")));
    if (!artUrl.isEmpty()) track.artworkURL = artUrl.toStdString();
    return track;
}

}  // namespace vantrelle
