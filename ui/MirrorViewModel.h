#pragma once

#include <QtQml/qqmlregistration.h>

#include <QObject>

#include "mirror/MirrorCamera.h"

class QQmlEngine;
class QJSEngine;

namespace vantrelle {

// The Mirror tool's face (`Mirror` in QML): whether the preview should run, and the camera session's
// own report of running, both handed to the core's MirrorCamera.
class MirrorViewModel final : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(Mirror)
    QML_SINGLETON
    Q_PROPERTY(bool wanted READ wanted WRITE setWanted NOTIFY wantedChanged)

public:
    explicit MirrorViewModel(MirrorCamera& camera);
    // The instance the composition root gave the engine.
    static MirrorViewModel* create(QQmlEngine* engine, QJSEngine*);

    [[nodiscard]] bool wanted() const { return m_camera.wanted(); }
    void setWanted(bool wanted) { m_camera.setWanted(wanted); }
    Q_INVOKABLE void setSessionRunning(bool running) { m_camera.setSessionRunning(running); }

Q_SIGNALS:
    void wantedChanged();

private:
    MirrorCamera& m_camera;
    Connection m_connection;
};

}  // namespace vantrelle
