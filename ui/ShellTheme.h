#pragma once

#include <QtQml/qqmlregistration.h>

#include <QColor>
#include <QObject>
#include <QString>

#include "catalog/NotchTheme.h"

namespace vantrelle {

// The shell's colours, icon font and motion for QML (`Theme`), read from NotchTheme so each is
// defined once. Springs become the OutBack duration and overshoot that draw the same curve.
class ShellTheme final : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(Theme)
    QML_SINGLETON
    Q_PROPERTY(QColor label MEMBER label CONSTANT)
    Q_PROPERTY(QColor secondaryLabel MEMBER secondaryLabel CONSTANT)
    Q_PROPERTY(QColor positive MEMBER positive CONSTANT)
    Q_PROPERTY(QColor negative MEMBER negative CONSTANT)
    Q_PROPERTY(QColor blue MEMBER blue CONSTANT)
    Q_PROPERTY(QColor orange MEMBER orange CONSTANT)
    Q_PROPERTY(QColor purple MEMBER purple CONSTANT)
    Q_PROPERTY(QColor teal MEMBER teal CONSTANT)
    Q_PROPERTY(QColor gold MEMBER gold CONSTANT)
    Q_PROPERTY(QColor surface MEMBER surface CONSTANT)
    Q_PROPERTY(QColor surfaceStrong MEMBER surfaceStrong CONSTANT)
    Q_PROPERTY(QColor glassDark MEMBER glassDark CONSTANT)
    Q_PROPERTY(QColor glassLight MEMBER glassLight CONSTANT)
    Q_PROPERTY(QString iconFont MEMBER iconFont CONSTANT)
    Q_PROPERTY(int morphDuration MEMBER morphDuration CONSTANT)
    Q_PROPERTY(qreal morphOvershoot MEMBER morphOvershoot CONSTANT)
    Q_PROPERTY(int snappyDuration MEMBER snappyDuration CONSTANT)
    Q_PROPERTY(qreal snappyOvershoot MEMBER snappyOvershoot CONSTANT)
    Q_PROPERTY(int contentDuration MEMBER contentDuration CONSTANT)
    Q_PROPERTY(qreal contentOvershoot MEMBER contentOvershoot CONSTANT)
    Q_PROPERTY(int bouncyDuration MEMBER bouncyDuration CONSTANT)
    Q_PROPERTY(qreal bouncyOvershoot MEMBER bouncyOvershoot CONSTANT)

public:
    explicit ShellTheme(QObject* parent = nullptr) : QObject(parent) {}

    [[nodiscard]] static QColor color(Color c) { return QColor(c.red, c.green, c.blue, c.alpha); }
    // A spring settles in about 1.3 responses.
    [[nodiscard]] static int duration(Spring spring);
    // The overshoot of an OutBack curve that peaks where the spring does, exp(-pi z / sqrt(1 - z^2)).
    [[nodiscard]] static qreal overshoot(Spring spring);
    // The icon font of every glyph, in QML and in the tray.
    static constexpr const char* kIconFont = "Material Icons";

    const QColor label = color(NotchTheme::label);
    const QColor secondaryLabel = color(NotchTheme::secondaryLabel);
    const QColor positive = color(NotchTheme::positive);
    const QColor negative = color(NotchTheme::negative);
    const QColor blue = color(NotchTheme::blue);
    const QColor orange = color(NotchTheme::orange);
    const QColor purple = color(NotchTheme::purple);
    const QColor teal = color(NotchTheme::teal);
    const QColor gold = color(NotchTheme::gold);
    const QColor surface = color(NotchTheme::surface);
    const QColor surfaceStrong = color(NotchTheme::surfaceStrong);
    const QColor glassDark = color(NotchTheme::glassDark);
    const QColor glassLight = color(NotchTheme::glassLight);
    const QString iconFont = QString::fromUtf8(kIconFont);
    const int morphDuration = duration(NotchTheme::morph);
    const qreal morphOvershoot = overshoot(NotchTheme::morph);
    const int snappyDuration = duration(NotchTheme::snappy);
    const qreal snappyOvershoot = overshoot(NotchTheme::snappy);
    const int contentDuration = duration(NotchTheme::content);
    const qreal contentOvershoot = overshoot(NotchTheme::content);
    const int bouncyDuration = duration(NotchTheme::bouncy);
    const qreal bouncyOvershoot = overshoot(NotchTheme::bouncy);
};

}  // namespace vantrelle
