#include "game/TavoRun.h"

#include <algorithm>
#include <cmath>

#include "support/DebugLog.h"

namespace vantrelle {

namespace {

// A little forgiveness at the edges: a graze is not a crash.
constexpr double kGrace = 3;
constexpr double kMinObstacleWidth = 12;
constexpr double kMaxObstacleWidth = 26;
constexpr double kMinObstacleHeight = 18;
constexpr double kMaxObstacleHeight = 40;
// Gaps are measured in seconds of running, so there is always time to land before the next one.
constexpr double kMinGapSeconds = 0.9;
constexpr double kMaxGapSeconds = 1.9;

}  // namespace

std::string_view rawName(TavoRunPhase phase) {
    switch (phase) {
        case TavoRunPhase::ready:
            return "ready";
        case TavoRunPhase::playing:
            return "playing";
        case TavoRunPhase::paused:
            return "paused";
        case TavoRunPhase::over:
            return "over";
    }
    return "ready";
}

TavoRun::TavoRun(Scheduler& scheduler, DefaultsStore& defaults, NotificationCenter& notifications,
                 std::uint32_t seed)
    : m_scheduler(scheduler),
      m_defaults(defaults),
      m_notifications(notifications),
      m_random(seed == 0 ? 1 : seed) {
    m_best = std::max<std::int64_t>(0, m_defaults.integer(bestKey).value_or(0));
    m_agentAlerts = m_notifications.observeMessage(
        Notifications::claudeNeedsUser, [this](const std::string& message) { stepAside(message); });
}

void TavoRun::jump() {
    switch (m_phase) {
        case TavoRunPhase::ready:
        case TavoRunPhase::over:
            start();
            break;
        case TavoRunPhase::paused:
            // Resuming doesn't jump: the player first sees where they are.
            m_phase = TavoRunPhase::playing;
            m_stepAsideMessage.clear();
            m_timer = m_scheduler.repeat(kStep, [this] { step(); });
            changed.emit();
            return;
        case TavoRunPhase::playing:
            break;
    }
    if (onGround()) m_velocityY = kJumpSpeed;
}

void TavoRun::pause() {
    if (m_phase != TavoRunPhase::playing) return;
    m_phase = TavoRunPhase::paused;
    m_timer.cancel();
    changed.emit();
}

void TavoRun::start() {
    m_phase = TavoRunPhase::playing;
    m_stepAsideMessage.clear();
    m_runnerY = 0;
    m_velocityY = 0;
    m_speed = kStartSpeed;
    m_distance = 0;
    m_score = 0;
    m_obstacles.clear();
    m_untilNext = kWidth * 0.5;  // a short clear stretch before the first obstacle
    m_timer = m_scheduler.repeat(kStep, [this] { step(); });
    DebugLog::write("game: run started");
    changed.emit();
}

void TavoRun::step() {
    if (m_phase != TavoRunPhase::playing) return;
    constexpr double dt = kStep;
    m_velocityY -= kGravity * dt;
    m_runnerY += m_velocityY * dt;
    if (m_runnerY <= 0) {
        m_runnerY = 0;
        m_velocityY = 0;
    }
    m_speed = std::min(kMaxSpeed, m_speed + kAcceleration * dt);
    const double moved = m_speed * dt;
    m_distance += moved;
    m_score = static_cast<std::int64_t>(m_distance / kUnitsPerPoint);
    for (auto& obstacle : m_obstacles) obstacle.x -= moved;
    std::erase_if(m_obstacles, [](const TavoRunObstacle& o) { return o.x + o.width < 0; });
    spawnIfRoom(moved);

    for (const auto& o : m_obstacles) {
        const bool overlapsX = o.x + kGrace < kRunnerX + kRunnerWidth && kRunnerX + kGrace < o.x + o.width;
        const bool overlapsY = m_runnerY + kGrace < o.height;
        if (overlapsX && overlapsY) {
            gameOver();
            return;
        }
    }
    changed.emit();
}

void TavoRun::spawnIfRoom(double moved) {
    m_untilNext -= moved;
    if (m_untilNext > 0) return;
    const double width = kMinObstacleWidth + random() * (kMaxObstacleWidth - kMinObstacleWidth);
    const double height = kMinObstacleHeight + random() * (kMaxObstacleHeight - kMinObstacleHeight);
    m_obstacles.push_back({kWidth, width, height});
    m_untilNext = width + m_speed * (kMinGapSeconds + random() * (kMaxGapSeconds - kMinGapSeconds));
}

void TavoRun::gameOver() {
    m_phase = TavoRunPhase::over;
    m_timer.cancel();
    if (m_score > m_best) {
        m_best = m_score;
        m_defaults.set(bestKey, m_best);
    }
    DebugLog::write(
        [&] { return "game: over at " + std::to_string(m_score) + ", best " + std::to_string(m_best); });
    changed.emit();
}

void TavoRun::stepAside(const std::string& message) {
    pause();
    m_stepAsideMessage = message;
    DebugLog::write(
        [&] { return "game: stepping aside at " + std::to_string(m_score) + " (" + message + ")"; });
    changed.emit();
    m_notifications.post(Notifications::tavoRunStepAside, message);
}

std::string tavoRunBanner(const TavoRun& game) {
    switch (game.phase()) {
        case TavoRunPhase::ready:
            return "Press Space or click to run";
        case TavoRunPhase::playing:
            return {};
        case TavoRunPhase::paused:
            return (game.stepAsideMessage().empty() ? std::string("Paused") : game.stepAsideMessage()) +
                   " \u2014 Space to go on";
        case TavoRunPhase::over:
            return "Game over \u2014 Space to run again";
    }
    return {};
}

double TavoRun::random() {
    // A small xorshift: the same seed gives the same track on every platform.
    m_random ^= m_random << 13U;
    m_random ^= m_random >> 17U;
    m_random ^= m_random << 5U;
    return static_cast<double>(m_random) / 4294967296.0;
}

}  // namespace vantrelle
