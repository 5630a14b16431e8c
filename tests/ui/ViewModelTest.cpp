#include <gtest/gtest.h>

#include <QGuiApplication>

#include "AIUsageViewModel.h"
#include "CalcViewModel.h"
#include "ShellModel.h"
#include "calc/RatesService.h"
#include "fakes/FakeHttpClient.h"
#include "fakes/FakeProcessTable.h"
#include "fakes/TempDir.h"
#include "overlay/OverlayFixture.h"

namespace vantrelle::testing {
namespace {

QGuiApplication& guiApplication() {
    static int argc = 1;
    static char name[] = "ui_model_tests";
    static char* argv[] = {name, nullptr};
    static QGuiApplication* app = new QGuiApplication(argc, argv);
    return *app;
}

class ViewModels : public OverlayFixture {
protected:
    ViewModels() { guiApplication(); }
};

TEST_F(ViewModels, ShellFollowsTheActivityAndSignalsOnlyWhatAViewSees) {
    auto& overlay = started();
    ShellModel shell(overlay, settings, activities, scheduler);
    int changes = 0;
    QObject::connect(&shell, &ShellModel::activityChanged, &shell, [&] { ++changes; });

    EXPECT_FALSE(shell.hasActivity());
    activities.set(LiveActivity{LiveActivity::Meeting{"Standup", scheduler.now() + 125}},
                   LiveActivityCenter::Source::meeting);
    EXPECT_EQ(shell.activityKind(), "meeting");
    EXPECT_EQ(shell.trailingText(), "2:05");
    EXPECT_FALSE(shell.leadingIcon().isEmpty());
    EXPECT_EQ(changes, 1);

    activities.set(LiveActivity{LiveActivity::AgentAlert{"api", AgentAlertKind::approval}},
                   LiveActivityCenter::Source::agentAlert);
    EXPECT_TRUE(shell.leadingIsAgentMark());
    EXPECT_EQ(shell.trailingText(), "Approve");
    EXPECT_EQ(changes, 2);

    // The same alert again changes nothing a view would see.
    activities.set(LiveActivity{LiveActivity::AgentAlert{"api", AgentAlertKind::approval}},
                   LiveActivityCenter::Source::agentAlert);
    EXPECT_EQ(changes, 2);
}

TEST_F(ViewModels, ShellShowsEnabledToolsAndFallsBackWhenTheShowingOneIsTurnedOff) {
    auto& overlay = started();
    ShellModel shell(overlay, settings, activities, scheduler);
    EXPECT_EQ(shell.tabs().size(), 17);
    shell.selectTab(QStringLiteral("notes"));
    EXPECT_EQ(shell.tab(), "notes");
    EXPECT_EQ(shell.tabTitle(), "Notes");
    shell.selectTab(QStringLiteral("no-such-tool"));
    EXPECT_EQ(shell.tab(), "notes");
    settings.setEnabled(NotchTab::notes, false);
    EXPECT_EQ(shell.tab(), "dashboard");
    EXPECT_EQ(shell.tabs().size(), 16);

    EXPECT_TRUE(shell.toolView().isEmpty());
    shell.registerToolView(NotchTab::dashboard, QStringLiteral("qrc:/x.qml"));
    EXPECT_EQ(shell.toolView(), "qrc:/x.qml");
}

TEST_F(ViewModels, UsagePanelFormatsTheDemoFiguresAndSwitchesTheAlertsHook) {
    TempDir home;
    FakeProcessTable processes;
    InlineQueueFactory queues;
    AIUsageModel model(AIUsageModel::Dependencies{environment, home.path(), scheduler, scheduler, queues,
                                                  processes, settings, activities, nullptr, true});
    model.applyDemo();
    TempDir claude;
    MapEnvironment hookEnvironment({{"VANTRELLE_CLAUDE_SETTINGS", (claude / "settings.json").string()}});
    AppPaths paths;
    paths.home = claude.path();
    paths.dataHome = claude / "data";
    ClaudeHooks hooks(paths, hookEnvironment);
    ClaudeHookSwitch hookSwitch(hooks, queues, scheduler);
    AIUsageViewModel view(model, hookSwitch, scheduler);
    scheduler.runUntilIdle();

    EXPECT_EQ(view.today().value(QStringLiteral("cost")).toString().front(), '$');
    EXPECT_EQ(view.days().size(), 7);
    EXPECT_TRUE(view.days().back().toMap().value(QStringLiteral("isToday")).toBool());
    const auto block = view.block();
    ASSERT_FALSE(block.isEmpty());
    EXPECT_GT(block.value(QStringLiteral("progress")).toDouble(), 0.0);
    EXPECT_LE(block.value(QStringLiteral("progress")).toDouble(), 1.0);
    EXPECT_TRUE(block.value(QStringLiteral("burn")).toString().endsWith("/min"));
    EXPECT_FALSE(view.sessions().isEmpty());
    EXPECT_EQ(AIUsageViewModel::cost(3.456), "$3.46");
    EXPECT_EQ(AIUsageViewModel::cost(1234.5), "$1235");

    int hookSignals = 0;
    QObject::connect(&view, &AIUsageViewModel::hooksChanged, &view, [&] { ++hookSignals; });
    EXPECT_FALSE(view.hooksInstalled());
    view.setHooksInstalled(true);
    scheduler.runUntilIdle();
    EXPECT_TRUE(view.hooksInstalled());
    EXPECT_TRUE(view.hookError().isEmpty());
    claude.write("settings.json", "{broken,");
    view.setHooksInstalled(false);
    scheduler.runUntilIdle();
    EXPECT_TRUE(view.hookError().startsWith("Couldn't read your Claude Code settings in "))
        << view.hookError().toStdString();
    EXPECT_TRUE(view.hookError().endsWith("it isn't valid JSON (line 1, column 2). Nothing was changed."))
        << view.hookError().toStdString();
    EXPECT_EQ(hookSignals, 2);
}

TEST_F(ViewModels, CalculatorListsTheNewestLineFirstAndCarriesTheAnswer) {
    FakeHttpClient http(scheduler);
    RatesService rates(http, defaults, scheduler, environment);
    CalcModel calc(rates, false);
    CalcViewModel view(calc);
    view.setInput(QStringLiteral("24*7"));
    EXPECT_EQ(view.answer(), "168");
    EXPECT_TRUE(view.commit());
    view.setInput(QStringLiteral("ans / 2"));
    EXPECT_EQ(view.answer(), "84");
    EXPECT_TRUE(view.commit());
    ASSERT_EQ(view.entries().size(), 2);
    EXPECT_EQ(view.entries().front().toMap().value(QStringLiteral("expression")).toString(), "ans / 2");
    EXPECT_EQ(view.previousAnswer(), "84");
    view.recall(0);
    EXPECT_EQ(view.input(), "24*7");
    view.setInput(QStringLiteral("1/0"));
    EXPECT_TRUE(view.isError());
}

}  // namespace
}  // namespace vantrelle::testing
