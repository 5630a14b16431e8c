#pragma once

#include <QObject>
#include <memory>

class QQmlEngine;
class QQuickView;

namespace vantrelle {

// The settings as an ordinary top-level window, with a title bar and a task bar entry, apart from the
// overlay's windows. It exists only while shown: closing it frees its view, so an idle program pays
// nothing for it.
class SettingsWindow final : public QObject {
public:
    explicit SettingsWindow(QQmlEngine& engine);
    ~SettingsWindow() override;
    SettingsWindow(const SettingsWindow&) = delete;
    SettingsWindow& operator=(const SettingsWindow&) = delete;

    // Shows the window on the page the settings name, or brings it forward if it is up.
    void show();
    [[nodiscard]] bool isShown() const;
    void close();

private:
    QQmlEngine& m_engine;
    std::unique_ptr<QQuickView> m_view;
};

}  // namespace vantrelle
