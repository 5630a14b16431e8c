#pragma once

#include <deque>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "media/MediaProvider.h"

namespace vantrelle::testing {

// A media provider whose players the test sets up. State queries answer at once from what the test
// set, unless `holdStates` keeps them waiting for release(); artwork and commands wait for the test.
class FakeMediaProvider final : public MediaProvider {
public:
    struct Player {
        bool running = false;
        std::optional<NowPlayingTrack> track;
    };

    [[nodiscard]] bool isRunning(MediaSource source) const override { return player(source).running; }

    void fetchState(MediaSource source, std::function<void(std::optional<NowPlayingTrack>)> done) override {
        stateQueries.push_back(source);
        if (holdStates) {
            heldStates.emplace_back(source, std::move(done));
            return;
        }
        done(player(source).track);
    }
    void fetchArtwork(const NowPlayingTrack& track,
                      std::function<void(std::optional<Artwork>)> done) override {
        artworkRequests.push_back(track.artworkKey);
        heldArtwork.push_back(std::move(done));
    }
    void command(MediaSource source, const std::string& verb, std::function<void()> done) override {
        commands.emplace_back(source, verb);
        done();
    }

    Player& player(MediaSource source) { return m_players[source]; }
    [[nodiscard]] Player player(MediaSource source) const {
        return m_players.contains(source) ? m_players.at(source) : Player{};
    }
    void play(NowPlayingTrack track) {
        auto& p = player(track.source);
        p.running = true;
        p.track = std::move(track);
    }

    // Answers the oldest held state query with the player's current track.
    void releaseState() {
        auto [source, done] = std::move(heldStates.front());
        heldStates.pop_front();
        done(player(source).track);
    }
    // Answers the oldest artwork request.
    void answerArtwork(std::optional<Artwork> artwork) {
        auto done = std::move(heldArtwork.front());
        heldArtwork.pop_front();
        done(std::move(artwork));
    }

    bool holdStates = false;
    std::vector<MediaSource> stateQueries;
    std::deque<std::pair<MediaSource, std::function<void(std::optional<NowPlayingTrack>)>>> heldStates;
    std::vector<std::string> artworkRequests;
    std::deque<std::function<void(std::optional<Artwork>)>> heldArtwork;
    std::vector<std::pair<MediaSource, std::string>> commands;

private:
    std::map<MediaSource, Player> m_players;
};

}  // namespace vantrelle::testing
