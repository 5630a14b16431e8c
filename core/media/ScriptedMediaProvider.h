#pragma once

#include <filesystem>
#include <functional>
#include <memory>

#include "media/ArtworkCache.h"
#include "media/MediaProvider.h"
#include "media/ScriptRunner.h"
#include "platform/HttpClient.h"
#include "platform/ImageDecoder.h"
#include "platform/Scheduler.h"
#include "platform/SerialQueue.h"

namespace vantrelle {

// The players reached through AppleScript: one script per query on the "media" queue, one text reply
// parsed into a track. Keeps no idea of a current track; every answer comes from one reply. Artwork is
// cached in memory, eight entries, first in first out. Not the provider on Linux, where players speak
// MPRIS; kept whole so its wire format runs and is tested anywhere the script tools exist.
class ScriptedMediaProvider final : public MediaProvider {
public:
    struct Dependencies {
        ProcessRunner& processes;
        QueueFactory& queues;
        Scheduler& scheduler;
        HttpClient& http;
        const ImageDecoder& decoder;
        std::filesystem::path cacheDir;  // "<XDG cache>/Vantrelle"
        std::function<bool(MediaSource)> isRunning;
        ScriptRunner::Tools tools = {};
    };
    static constexpr double kDownloadTimeout = 15.0;
    // Replies of 64 bytes or fewer are a file the player didn't fill.
    static constexpr std::size_t kMinimumArtworkBytes = 65;

    explicit ScriptedMediaProvider(Dependencies dependencies);
    ~ScriptedMediaProvider() override;
    ScriptedMediaProvider(const ScriptedMediaProvider&) = delete;
    ScriptedMediaProvider& operator=(const ScriptedMediaProvider&) = delete;

    [[nodiscard]] bool isRunning(MediaSource source) const override;
    void fetchState(MediaSource source, std::function<void(std::optional<NowPlayingTrack>)> done) override;
    void fetchArtwork(const NowPlayingTrack& track,
                      std::function<void(std::optional<Artwork>)> done) override;
    void command(MediaSource source, const std::string& verb, std::function<void()> done) override;

    [[nodiscard]] std::filesystem::path artworkFile() const { return m_cacheDir / "artwork.bin"; }

private:
    template <typename T>
    void deliver(std::function<void(T)> done, T value);
    [[nodiscard]] std::optional<Artwork> musicArtworkSync();
    [[nodiscard]] std::optional<Artwork> decode(std::vector<std::uint8_t> bytes) const;
    void finishArtwork(const std::string& key, std::optional<Artwork> artwork,
                       std::function<void(std::optional<Artwork>)> done);
    void download(const NowPlayingTrack& track, std::function<void(std::optional<Artwork>)> done);

    Scheduler& m_scheduler;
    HttpClient& m_http;
    const ImageDecoder& m_decoder;
    std::filesystem::path m_cacheDir;
    std::function<bool(MediaSource)> m_isRunning;
    ScriptRunner m_runner;  // queue only
    ArtworkCache m_cache;   // queue only
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
    // Last, so it goes first: its worker finishes before anything it uses goes.
    std::unique_ptr<SerialQueue> m_queue;
};

}  // namespace vantrelle
