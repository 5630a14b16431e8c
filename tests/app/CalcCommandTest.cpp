// `vantrelle calc` as a process: every line of the calculator's grammar tables, answered by the
// command, must read exactly as the engine behind the panel answers it.
#include <gtest/gtest.h>

#include <cstdio>
#include <sstream>
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

std::vector<std::string> lines(const std::string& text) {
    std::vector<std::string> result;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) result.push_back(line);
    return result;
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
    const auto typed = tableLines();
    std::string input;
    std::vector<std::string> expected;
    std::optional<double> previous;
    for (const auto& line : typed) {
        input += line + "\n";
        const CalcResult result = CalcEngine::evaluate(line, previous, nullptr);
        expected.push_back(calcJsonLine(result).substr(0, calcJsonLine(result).size() - 1));
        if (result.value) previous = result.value;
    }
    const CommandRun run = runCalc(home, "--json", input);
    EXPECT_EQ(run.status, 1) << "the tables hold refused lines";
    const auto answered = lines(run.output);
    ASSERT_EQ(answered.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        SCOPED_TRACE(typed[i]);
        EXPECT_EQ(answered[i], expected[i]);
    }
}

TEST(CalcCommand, AnArgumentOrEachLineOfInputIsAnsweredAndAnyRefusalExitsOne) {
    testing::TempDir home;
    const struct {
        const char* name;
        std::string arguments, input;
        int status;
        std::string output;
    } rows[] = {
        {"one expression", "'12% of 80'", "", 0,
         calcText(CalcEngine::evaluate("12% of 80", std::nullopt, nullptr))},
        {"refused", "'1 / 0'", "", 1, "Division by zero\n"},
        // No saved rates offline; a blank line keeps its place.
        {"standard input", "", "2 + 2\nans * 10\n\n$5 in eur\n", 1, "4\n40\n\nRates unavailable right now\n"},
        {"no input", "", "", 0, ""},
        {"a bad option", "--frobnicate", "", 2, ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const CommandRun run = runCalc(home, row.arguments, row.input);
        EXPECT_EQ(run.status, row.status);
        EXPECT_EQ(run.output, row.output);
    }
}

TEST(CalcCommand, CurrencyFromTheRatesThePanelSavedEvenWhenOld) {
    testing::TempDir home;
    const std::string saved =
        R"({"calcRatesJSON": "{\"base\":\"USD\",\"date\":\"2025-01-03\",\"rates\":{\"EUR\":0.9}}", )"
        R"("calcRatesFetchedAt": 1735900000})";
    home.write("config/Vantrelle/defaults.json", saved);
    const CommandRun run = runCalc(home, "--json '$10 in eur'", "");
    EXPECT_EQ(run.status, 0) << run.output;
    EXPECT_NE(run.output.find(R"("kind":"currency")"), std::string::npos) << run.output;
    EXPECT_NE(run.output.find(R"("value":9.0)"), std::string::npos) << run.output;
    EXPECT_EQ(home.read("config/Vantrelle/defaults.json"), saved) << "read, never written";
}

}  // namespace
}  // namespace vantrelle
