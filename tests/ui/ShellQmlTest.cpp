#include <QtQml/qqmlextensionplugin.h>
#include <gtest/gtest.h>

#include <QDirIterator>
#include <QFile>
#include <QQmlComponent>
#include <QRegularExpression>
#include <memory>

#include "AIUsageViewModel.h"
#include "CalcViewModel.h"
#include "GuiApplication.h"
#include "RemindersViewModel.h"
#include "ShellEngine.h"
#include "ShellModel.h"
#include "TodayViewModel.h"
#include "calc/RatesService.h"
#include "fakes/FakeCalendarSource.h"
#include "fakes/FakeHttpClient.h"
#include "fakes/TempDir.h"
#include "overlay/OverlayFixture.h"
#include "schedule/CalendarDemo.h"

Q_IMPORT_QML_PLUGIN(Vantrelle_ShellPlugin)

namespace vantrelle::testing {
namespace {

class NoProcesses final : public ProcessTable {
public:
    std::optional<std::vector<ProcessInfo>> list(std::string&) override { return std::vector<ProcessInfo>{}; }
};

// Every component of the shell's QML module, built against real view models on demo figures: what
// would show as a QML error or warning in the running program fails here, without a display.
class ShellQml : public OverlayFixture {
protected:
    ShellQml() {
        engine.setOutputWarningsToStandardError(false);
        QObject::connect(&engine, &QQmlEngine::warnings, &engine, [this](const QList<QQmlError>& list) {
            for (const auto& warning : list) problems.push_back(warning.toString().toStdString());
        });
        hooksPaths.home = hooksHome.path();
        hooksPaths.dataHome = hooksHome / "data";
        usage.applyDemo();
        shell.registerToolView(NotchTab::dashboard, QStringLiteral("DashboardView"));
        engine.viewModels = {&shell, &calcView, &usageView, &todayView, &remindersView};
    }

    // Builds a component of the module; the errors it met, if any.
    std::vector<std::string> build(const QString& name, const QVariantMap& properties = {}) {
        QQmlComponent component(&engine, ShellEngine::componentUrl(name));
        std::unique_ptr<QObject> object(component.createWithInitialProperties(properties));
        for (const auto& error : component.errors()) problems.push_back(error.toString().toStdString());
        if (!object) problems.push_back(name.toStdString() + ": not created");
        QCoreApplication::processEvents();
        return std::exchange(problems, {});
    }

    QGuiApplication& app = guiApplication();  // before any member that needs it
    TempDir home;
    NoProcesses processes;
    InlineQueueFactory queues;
    AIUsageModel usage{AIUsageModel::Dependencies{environment, home.path(), scheduler, scheduler, queues,
                                                  processes, settings, activities, nullptr, true}};
    TempDir hooksHome;
    AppPaths hooksPaths;
    MapEnvironment hooksEnvironment{{{"VANTRELLE_CLAUDE_SETTINGS", (hooksHome / "settings.json").string()}}};
    ClaudeHooks hooks{hooksPaths, hooksEnvironment};
    ClaudeHookSwitch hookSwitch{hooks, queues, scheduler};
    AIUsageViewModel usageView{usage, hookSwitch, scheduler};
    FakeHttpClient http{scheduler};
    RatesService rates{http, defaults, scheduler, environment};
    CalcModel calc{rates, false};
    CalcViewModel calcView{calc};
    testing::FakeCalendarSource calendarSource;
    CalendarService calendar{CalendarService::Dependencies{calendarSource, settings, activities,
                                                           notifications, scheduler, scheduler, environment,
                                                           true, CalendarDemo::events(scheduler.now())}};
    TodayViewModel todayView{calendar, [](const QString&) { return true; }, [] {}};
    CalendarLibrary calendarLibrary;
    ReminderList reminders{calendarLibrary, scheduler, true};
    RemindersViewModel remindersView{reminders};
    ShellModel shell{started(), settings, activities, scheduler};
    ShellEngine engine;
    std::vector<std::string> problems;
};

// The module's own list of its components, as the engine reads it.
QStringList moduleComponents() {
    QFile qmldir(QStringLiteral(":/qt/qml/Vantrelle/Shell/qmldir"));
    if (!qmldir.open(QIODevice::ReadOnly)) return {};
    QStringList names;
    static const QRegularExpression component(QStringLiteral("^([A-Z]\\w*) \\d+\\.\\d+ \\w+\\.qml$"));
    for (const auto& line : QString::fromUtf8(qmldir.readAll()).split(QLatin1Char('\n'))) {
        if (const auto match = component.match(line.trimmed()); match.hasMatch()) names << match.captured(1);
    }
    return names;
}

TEST(ShellQmlModule, ListsEveryQmlFileOfTheSourceTree) {
    QStringList files;
    QDirIterator it(QStringLiteral(VANTRELLE_QML_SOURCE_DIR), {QStringLiteral("*.qml")}, QDir::Files,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) files << it.nextFileInfo().completeBaseName();
    QStringList listed = moduleComponents();
    files.sort();
    listed.sort();
    EXPECT_FALSE(files.isEmpty());
    EXPECT_EQ(listed, files);
}

TEST_F(ShellQml, EveryComponentOfTheModuleBuildsWithoutErrorsOrWarnings) {
    const QStringList names = moduleComponents();
    ASSERT_FALSE(names.isEmpty());
    // Components a parent fills in; the values stand in for a row of their list.
    const QMap<QString, QVariantMap> properties{{QStringLiteral("DashboardTile"),
                                                 {{QStringLiteral("raw"), QStringLiteral("aiUsage")},
                                                  {QStringLiteral("title"), QStringLiteral("AI Usage")},
                                                  {QStringLiteral("icon"), QStringLiteral("x")},
                                                  {QStringLiteral("subtitle"), QString()},
                                                  {QStringLiteral("tool"), QStringLiteral("aiUsage")},
                                                  {QStringLiteral("tint"), QColor(Qt::red)},
                                                  {QStringLiteral("view"), QString()}}}};
    for (const auto& name : names) {
        SCOPED_TRACE(name.toStdString());
        EXPECT_EQ(build(name, properties.value(name)), std::vector<std::string>{});
    }
}

TEST_F(ShellQml, TheOpenPanelShowsEachBuiltToolWithoutErrors) {
    shell.registerToolView(NotchTab::calc, QStringLiteral("CalcView"));
    shell.registerToolView(NotchTab::aiUsage, QStringLiteral("AIUsageView"));
    QQmlComponent component(&engine, ShellEngine::componentUrl(QStringLiteral("NotchRoot")));
    std::unique_ptr<QObject> root(component.create());
    ASSERT_TRUE(root) << component.errorString().toStdString();
    controller->setExpanded(true, "test");
    for (const char* tool : {"dashboard", "calc", "aiUsage", "notes"}) {
        SCOPED_TRACE(tool);
        shell.selectTab(QString::fromUtf8(tool));
        QCoreApplication::processEvents();
        EXPECT_EQ(std::exchange(problems, {}), std::vector<std::string>{});
    }
}

TEST_F(ShellQml, ASingletonWithoutItsModelIsAnErrorNotACrash) {
    engine.viewModels.calc = nullptr;
    EXPECT_FALSE(build(QStringLiteral("CalcView")).empty());
}

}  // namespace
}  // namespace vantrelle::testing
