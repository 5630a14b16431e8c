#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/DefaultsStore.h"
#include "platform/Scheduler.h"
#include "support/NotificationCenter.h"
#include "support/Signal.h"

namespace vantrelle {

enum class TavoRunPhase { ready, playing, paused, over };
[[nodiscard]] std::string_view rawName(TavoRunPhase phase);

// One obstacle on the track, in world units; x is its left edge, it stands on the ground.
struct TavoRunObstacle {
    double x = 0;
    double width = 0;
    double height = 0;
};

// The endless runner played while an agent works: the runner jumps over obstacles that come ever
// faster; the score is the distance run. The world moves in fixed steps on the scheduler's timer, so
// a run plays the same on virtual time. It steps aside when an agent needs the user. Main thread.
class TavoRun {
public:
    // The world: a track kWidth long, y up from the ground.
    static constexpr double kStep = 1.0 / 60.0;
    static constexpr double kWidth = 600;
    static constexpr double kHeight = 150;
    static constexpr double kRunnerX = 48;
    static constexpr double kRunnerWidth = 20;
    static constexpr double kRunnerHeight = 24;
    static constexpr double kGravity = 2400;
    static constexpr double kJumpSpeed = 760;
    static constexpr double kStartSpeed = 300;
    static constexpr double kMaxSpeed = 640;
    static constexpr double kAcceleration = 8;  // units per second, every second
    static constexpr double kUnitsPerPoint = 10;
    static constexpr std::string_view bestKey = "tavoRunBest";

    TavoRun(Scheduler& scheduler, DefaultsStore& defaults, NotificationCenter& notifications,
            std::uint32_t seed = 1);
    TavoRun(const TavoRun&) = delete;
    TavoRun& operator=(const TavoRun&) = delete;

    // Space or a click: starts a run from ready or over, resumes a paused one, jumps while playing.
    void jump();
    // The view went away or the user asked: a running game waits.
    void pause();

    [[nodiscard]] TavoRunPhase phase() const { return m_phase; }
    [[nodiscard]] bool isPlaying() const { return m_phase == TavoRunPhase::playing; }
    [[nodiscard]] std::int64_t score() const { return m_score; }
    [[nodiscard]] std::int64_t best() const { return m_best; }
    [[nodiscard]] double runnerY() const { return m_runnerY; }
    [[nodiscard]] bool onGround() const { return m_runnerY <= 0 && m_velocityY <= 0; }
    [[nodiscard]] double speed() const { return m_speed; }
    [[nodiscard]] const std::vector<TavoRunObstacle>& obstacles() const { return m_obstacles; }
    // Why the game last stepped aside, e.g. "Claude needs your approval"; empty once play goes on.
    [[nodiscard]] const std::string& stepAsideMessage() const { return m_stepAsideMessage; }

    // After every step and every change of phase.
    Signal<> changed;

private:
    void start();
    void step();
    void spawnIfRoom(double moved);
    void gameOver();
    void stepAside(const std::string& message);
    [[nodiscard]] double random();  // in [0, 1)

    Scheduler& m_scheduler;
    DefaultsStore& m_defaults;
    NotificationCenter& m_notifications;
    Connection m_agentAlerts;
    RepeatingTimer m_timer;
    std::uint32_t m_random;
    TavoRunPhase m_phase = TavoRunPhase::ready;
    double m_runnerY = 0;
    double m_velocityY = 0;
    double m_speed = kStartSpeed;
    double m_distance = 0;
    double m_untilNext = 0;  // distance left before the next obstacle appears
    std::vector<TavoRunObstacle> m_obstacles;
    std::int64_t m_score = 0;
    std::int64_t m_best = 0;
    std::string m_stepAsideMessage;
};

// What the track says while no run goes on: how to start, resume or retry, or why the game stepped
// aside. Empty while playing.
[[nodiscard]] std::string tavoRunBanner(const TavoRun& game);

}  // namespace vantrelle
