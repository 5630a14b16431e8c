#include "media/ScriptedMediaProvider.h"

#include <fstream>
#include <iterator>
#include <system_error>

#include "media/MediaScripts.h"
#include "media/StateReply.h"
#include "support/DebugLog.h"

namespace vantrelle {

namespace {

std::optional<std::vector<std::uint8_t>> readBytes(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    if (!in) return std::nullopt;
    std::vector<std::uint8_t> bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    if (in.bad()) return std::nullopt;
    return bytes;
}

void logArtwork(const std::string& key, const std::optional<Artwork>& artwork) {
    DebugLog::write([&] {
        const std::string size = artwork
                                     ? std::to_string(artwork->width) + "x" + std::to_string(artwork->height)
                                     : std::string("nil");
        return "media: artwork for " + key + " -> " + size;
    });
}

}  // namespace

ScriptedMediaProvider::ScriptedMediaProvider(Dependencies dependencies)
    : m_scheduler(dependencies.scheduler),
      m_http(dependencies.http),
      m_decoder(dependencies.decoder),
      m_cacheDir(dependencies.cacheDir),
      m_isRunning(std::move(dependencies.isRunning)),
      m_runner(dependencies.processes, dependencies.cacheDir, std::move(dependencies.tools)),
      m_queue(dependencies.queues.make("media")) {}

ScriptedMediaProvider::~ScriptedMediaProvider() {
    m_queue.reset();
}

template <typename T>
void ScriptedMediaProvider::deliver(std::function<void(T)> done, T value) {
    m_scheduler.post(
        [alive = std::weak_ptr<bool>(m_alive), done = std::move(done), value = std::move(value)] {
            if (!alive.expired()) done(value);
        });
}

bool ScriptedMediaProvider::isRunning(MediaSource source) const {
    return m_isRunning && m_isRunning(source);
}

void ScriptedMediaProvider::fetchState(MediaSource source,
                                       std::function<void(std::optional<NowPlayingTrack>)> done) {
    m_queue->async([this, source, done = std::move(done)]() mutable {
        const auto reply = m_runner.execute(media_scripts::stateScript(source), true);
        deliver(std::move(done), reply ? parseStateReply(source, *reply) : std::optional<NowPlayingTrack>());
    });
}

void ScriptedMediaProvider::command(MediaSource source, const std::string& verb, std::function<void()> done) {
    m_queue->async([this, source, verb, done = std::move(done)]() mutable {
        (void)m_runner.execute(media_scripts::commandScript(source, verb),
                               media_scripts::cachesCommand(verb));
        m_scheduler.post([alive = std::weak_ptr<bool>(m_alive), done = std::move(done)] {
            if (!alive.expired()) done();
        });
    });
}

void ScriptedMediaProvider::fetchArtwork(const NowPlayingTrack& track,
                                         std::function<void(std::optional<Artwork>)> done) {
    m_queue->async([this, track, done = std::move(done)]() mutable {
        if (auto hit = m_cache.find(track.artworkKey)) {
            deliver(std::move(done), std::move(hit));
            return;
        }
        if (track.source == MediaSource::spotify) {
            if (!track.artworkURL) {
                deliver(std::move(done), std::optional<Artwork>());
                return;
            }
            // The download is the only work off the queue; the HTTP client calls back on the main thread.
            m_scheduler.post(
                [this, alive = std::weak_ptr<bool>(m_alive), track, done = std::move(done)]() mutable {
                    if (!alive.expired()) download(track, std::move(done));
                });
            return;
        }
        finishArtwork(track.artworkKey, musicArtworkSync(), std::move(done));
    });
}

void ScriptedMediaProvider::download(const NowPlayingTrack& track,
                                     std::function<void(std::optional<Artwork>)> done) {
    m_http.get(*track.artworkURL, kDownloadTimeout,
               [this, alive = std::weak_ptr<bool>(m_alive), key = track.artworkKey,
                done = std::move(done)](const HttpResponse& response) mutable {
                   if (alive.expired()) return;
                   if (!response.ok()) {
                       logArtwork(key, std::nullopt);
                       done(std::nullopt);
                       return;
                   }
                   m_queue->async([this, key, body = response.body, done = std::move(done)]() mutable {
                       finishArtwork(key, decode(std::vector<std::uint8_t>(body.begin(), body.end())),
                                     std::move(done));
                   });
               });
}

void ScriptedMediaProvider::finishArtwork(const std::string& key, std::optional<Artwork> artwork,
                                          std::function<void(std::optional<Artwork>)> done) {
    if (artwork) m_cache.remember(key, *artwork);
    logArtwork(key, artwork);
    deliver(std::move(done), std::move(artwork));
}

std::optional<Artwork> ScriptedMediaProvider::decode(std::vector<std::uint8_t> bytes) const {
    const auto size = m_decoder.decode(bytes);
    if (!size) return std::nullopt;
    return Artwork{std::make_shared<const std::vector<std::uint8_t>>(std::move(bytes)), size->width,
                   size->height};
}

std::optional<Artwork> ScriptedMediaProvider::musicArtworkSync() {
    const auto file = artworkFile();
    const auto reply = m_runner.execute(media_scripts::musicArtworkScript(file), true);
    if (!reply || reply->empty()) return std::nullopt;
    std::error_code ignored;
    auto bytes = readBytes(file);
    if (!bytes || bytes->size() < kMinimumArtworkBytes) {
        DebugLog::write("media: artwork file missing or empty");
        std::filesystem::remove(file, ignored);
        return std::nullopt;
    }
    const auto count = bytes->size();
    auto artwork = decode(std::move(*bytes));
    std::filesystem::remove(file, ignored);
    if (!artwork)
        DebugLog::write([&] { return "media: artwork " + std::to_string(count) + " bytes not decodable"; });
    return artwork;
}

}  // namespace vantrelle
