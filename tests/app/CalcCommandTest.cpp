// `vantrelle calc` as a process: every line of the calculator's grammar tables, answered by the
// command, must read exactly as the engine behind the panel answers it.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

#include "calc/CalcEngine.h"
#include "calc/CalcGrammarRows.h"
#include "calc/CalcOutput.h"
#include "fakes/TempDir.h"

namespace vantrelle {
namespace {

using namespace calcrows;

struct CommandRun {
    std::string output;
    int status = -1;
};

// Runs the command in a home of its own (no saved rates, no network needed), offline.
CommandRun runCalc(const testing::TempDir& home, const std::string& arguments, const std::string& input) {
    const auto inputFile = home.write("input.txt", input);
    const std::string command = "env HOME='" + home.path().string() + "' XDG_CONFIG_HOME='" +
                                (home / "config").string() + "' " VANTRELLE_BINARY " calc --offline " +
                                arguments + " < '" + inputFile.string() + "'";
    CommandRun run;
    FILE* pipe = ::popen(command.c_str(), "r");
    if (!pipe) return run;
    char buffer[4096];
    for (std::size_t n; (n = std::fread(buffer, 1, sizeof buffer, pipe)) > 0;) run.output.append(buffer, n);
    const int status = ::pclose(pipe);
    run.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return run;
}

// Every line of the tables, with the answer "ans" stands for on the line before where a row needs one.
std::vector<std::string> tableLines() {
    std::vector<std::string> result;
    const auto addValues = [&](const auto& rows) {
        for (const Value& row : rows) {
            if (row.previous) result.push_back(CalcEngine::format(*row.previous, 12));
            result.emplace_back(row.text);
        }
    };
    const auto addShown = [&](const auto& rows) {
        for (const Shown& row : rows) result.emplace_back(row.text);
    };
    addValues(kPrecedenceValues);
    addShown(kPrecedenceShown);
    addValues(kPercentValues);
    addShown(kPercentShown);
    addValues(kFunctionValues);
    addShown(kFunctionShown);
    addValues(kPreviousAnswerValues);
    for (const Refused& row : kErrorRows) result.emplace_back(row.text);
    return result;
}

TEST(CalcCommand, AnswersEveryTableLineAsThePanelsEngine) {
    testing::TempDir home;
    std::string input;
    std::string expected;  // a failing line shows in the diff gtest prints
    std::optional<double> previous;
    for (const auto& line : tableLines()) {
        input += line + "\n";
        const CalcResult result = CalcEngine::evaluate(line, previous, nullptr);
        expected += calcJsonLine(result);
        if (result.value) previous = result.value;
    }
    const CommandRun run = runCalc(home, "--json", input);
    EXPECT_EQ(run.status, 1) << "the tables hold refused lines";
    EXPECT_EQ(run.output, expected);
    // As text, a blank line keeps its place; no saved rates offline is a refusal.
    const CommandRun text = runCalc(home, "", "2 + 2\n\n$5 in eur\n");
    EXPECT_EQ(text.output, "4\n\nRates unavailable right now\n");
    EXPECT_EQ(text.status, 1);
}

// The rates the panel saved, however old, answer offline; the settings file is read, never written.
TEST(CalcCommand, AnArgumentIsAnsweredFromSavedRatesAndABadOptionExitsTwo) {
    testing::TempDir home;
    const std::string saved =
        R"({"calcRatesJSON": "{\"base\":\"USD\",\"date\":\"2025-01-03\",\"rates\":{\"EUR\":0.9}}", )"
        R"("calcRatesFetchedAt": 1735900000})";
    home.write("config/Vantrelle/defaults.json", saved);
    const CommandRun run = runCalc(home, "--json '$10 in eur'", "");
    EXPECT_EQ(run.status, 0) << run.output;
    EXPECT_NE(run.output.find(R"("value":9.0)"), std::string::npos) << run.output;
    EXPECT_EQ(home.read("config/Vantrelle/defaults.json"), saved);
    EXPECT_EQ(runCalc(home, "--frobnicate", "").status, 2);
}

}  // namespace
}  // namespace vantrelle
