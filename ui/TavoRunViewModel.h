#pragma once

#include <QtQml/qqmlregistration.h>

#include <QObject>
#include <QString>
#include <QVariantList>

#include "game/TavoRun.h"

class QQmlEngine;
class QJSEngine;

namespace vantrelle {

// The game's face (`TavoRun` in QML): the world to draw, in world units, and the player's two inputs.
class TavoRunViewModel final : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(TavoRun)
    QML_SINGLETON
    Q_PROPERTY(QString phase READ phase NOTIFY changed)
    Q_PROPERTY(int score READ score NOTIFY changed)
    Q_PROPERTY(int best READ best NOTIFY changed)
    Q_PROPERTY(double runnerY READ runnerY NOTIFY changed)
    // Each obstacle as {x, width, height}.
    Q_PROPERTY(QVariantList obstacles READ obstacles NOTIFY changed)
    Q_PROPERTY(QString banner READ banner NOTIFY changed)
    Q_PROPERTY(double worldWidth READ worldWidth CONSTANT)
    Q_PROPERTY(double worldHeight READ worldHeight CONSTANT)
    Q_PROPERTY(double runnerX READ runnerX CONSTANT)
    Q_PROPERTY(double runnerWidth READ runnerWidth CONSTANT)
    Q_PROPERTY(double runnerHeight READ runnerHeight CONSTANT)

public:
    explicit TavoRunViewModel(TavoRun& game);
    // The instance the composition root set on the shell's engine.
    static TavoRunViewModel* create(QQmlEngine* engine, QJSEngine*);

    [[nodiscard]] QString phase() const;
    [[nodiscard]] int score() const { return static_cast<int>(m_game.score()); }
    [[nodiscard]] int best() const { return static_cast<int>(m_game.best()); }
    [[nodiscard]] double runnerY() const { return m_game.runnerY(); }
    [[nodiscard]] QVariantList obstacles() const;
    // What the track says over the game when it isn't running.
    [[nodiscard]] QString banner() const;
    [[nodiscard]] static double worldWidth() { return TavoRun::kWidth; }
    [[nodiscard]] static double worldHeight() { return TavoRun::kHeight; }
    [[nodiscard]] static double runnerX() { return TavoRun::kRunnerX; }
    [[nodiscard]] static double runnerWidth() { return TavoRun::kRunnerWidth; }
    [[nodiscard]] static double runnerHeight() { return TavoRun::kRunnerHeight; }

    Q_INVOKABLE void jump() { m_game.jump(); }
    // The view left the screen: a running game waits for the player.
    Q_INVOKABLE void setViewShown(bool shown);

Q_SIGNALS:
    void changed();

private:
    TavoRun& m_game;
    Connection m_connection;
    bool m_shown = false;
};

}  // namespace vantrelle
