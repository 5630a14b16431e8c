#pragma once

#include <QJSEngine>
#include <QQmlEngine>
#include <QUrl>

namespace vantrelle {

class AIUsageViewModel;
class CalcViewModel;
class ShelfViewModel;
class FocusViewModel;
class NotesViewModel;
class MediaViewModel;
class DevServersViewModel;
class ScreenTimeViewModel;
class SystemStatsViewModel;
class WrappedViewModel;
class MirrorViewModel;
class SettingsViewModel;
class SupportViewModel;
class RemindersViewModel;
class TodayViewModel;
class ShellModel;
class TasksViewModel;
class LauncherViewModel;
class DayProgressViewModel;
class QuickTogglesViewModel;
class MenuBarViewModel;
class ShortcutsViewModel;
class TavoRunViewModel;

// The QML engine of the shell: it finds the shell's QML module (Vantrelle.Shell) and hands the module's
// singletons the view models the composition root built. The view models stay the composition root's.
class ShellEngine final : public QQmlEngine {
    Q_OBJECT

public:
    explicit ShellEngine(QObject* parent = nullptr);

    // What the Shell, Calc, AIUsage and Media singletons are; set before the first view that reads them
    // loads.
    struct ViewModels {
        ShellModel* shell = nullptr;
        CalcViewModel* calc = nullptr;
        AIUsageViewModel* aiUsage = nullptr;
        ShelfViewModel* shelf = nullptr;
        FocusViewModel* focus = nullptr;
        NotesViewModel* notes = nullptr;
        TasksViewModel* tasks = nullptr;
        MediaViewModel* media = nullptr;
        // The monitors and the recap.
        DevServersViewModel* devServers = nullptr;
        ScreenTimeViewModel* screenTime = nullptr;
        SystemStatsViewModel* systemStats = nullptr;
        WrappedViewModel* wrapped = nullptr;
        SettingsViewModel* settings = nullptr;
        SupportViewModel* support = nullptr;
        MirrorViewModel* mirror = nullptr;
        TodayViewModel* today = nullptr;
        RemindersViewModel* reminders = nullptr;
        // The launcher and the workday's progress.
        LauncherViewModel* launcher = nullptr;
        DayProgressViewModel* dayProgress = nullptr;
        // System control: the quick toggles and the tray icons.
        QuickTogglesViewModel* quickToggles = nullptr;
        MenuBarViewModel* menuBar = nullptr;
        // The shortcut recorder and the game.
        ShortcutsViewModel* shortcuts = nullptr;
        TavoRunViewModel* game = nullptr;
    };
    ViewModels viewModels;

    // A component of the module by its type name, e.g. "NotchRoot".
    [[nodiscard]] static QUrl componentUrl(const QString& name);

    // A singleton's factory: the view model set on the engine, kept from the engine's garbage
    // collector; null (and logged) where none was set.
    template <typename T>
    static T* provide(QQmlEngine* engine, T* ViewModels::*member) {
        auto* shell = qobject_cast<ShellEngine*>(engine);
        T* model = shell ? shell->viewModels.*member : nullptr;
        if (!model) {
            logMissing(T::staticMetaObject.className());
            return nullptr;
        }
        QJSEngine::setObjectOwnership(model, QJSEngine::CppOwnership);
        return model;
    }

private:
    static void logMissing(const char* type);
};

}  // namespace vantrelle
