#pragma once

#include <QString>
#include <QVariantMap>
#include <optional>

#include "media/NowPlayingTrack.h"

namespace vantrelle {

// A player's org.mpris.MediaPlayer2.Player properties as a track: nothing when it is stopped or has
// nothing loaded. Times on the bus are microseconds.
[[nodiscard]] std::optional<NowPlayingTrack> trackFromMpris(const QString& busName,
                                                            const QVariantMap& properties);
// The metadata map of a property set, however the bus delivered it.
[[nodiscard]] QVariantMap mprisMetadata(const QVariantMap& properties);

}  // namespace vantrelle
