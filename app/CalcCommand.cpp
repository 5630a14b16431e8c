#include "CalcCommand.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <cstdio>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "QtHttpClient.h"
#include "calc/CalcEngine.h"
#include "calc/CalcOutput.h"
#include "calc/RatesService.h"
#include "platform/Environment.h"
#include "support/AppPaths.h"
#include "support/JsonDefaultsStore.h"

namespace {

using namespace vantrelle;

constexpr const char* kSynopsis =
    "usage: vantrelle calc [--json] [--offline] [\"<expression>\"]\n"
    "  <expression>   a line as typed in the panel: 12% of 80, 5 km in mi, $20 in eur, sqrt 2\n"
    "                 (without one, each line of standard input, one answer per line)\n"
    "  --json         one JSON object per line: kind, display, detail, value\n"
    "  --offline      currencies from the rates the panel saved last, without asking the network\n"
    "  -h, --help     this text\n";

struct CalcOptions {
    bool json = false;
    bool offline = false;
    bool help = false;
    std::optional<std::string> expression;
};

std::optional<CalcOptions> parseArguments(int argc, char** argv) {
    CalcOptions options;
    std::vector<std::string> words;
    bool optionsEnded = false;
    for (int i = 2; i < argc; ++i) {
        const std::string argument = argv[i];
        if (optionsEnded) {
            words.push_back(argument);
        } else if (argument == "--") {
            optionsEnded = true;
        } else if (argument == "--json") {
            options.json = true;
        } else if (argument == "--offline") {
            options.offline = true;
        } else if (argument == "-h" || argument == "--help") {
            options.help = true;
        } else if (argument.size() > 2 && argument.starts_with("--")) {
            std::fprintf(stderr, "vantrelle calc: unknown option %s\n%s", argument.c_str(), kSynopsis);
            return std::nullopt;
        } else {
            words.push_back(argument);  // "-5 + 2" is an expression, not an option
        }
    }
    if (!words.empty()) {
        std::string joined;
        for (const auto& word : words) joined += (joined.empty() ? "" : " ") + word;
        options.expression = joined;
    }
    return options;
}

// An HTTP client that never reaches the network: every request fails at once, so the rates service
// answers from what it saved.
class OfflineHttpClient final : public HttpClient {
public:
    void get(const std::string&, double, std::function<void(HttpResponse)> completion) override {
        HttpResponse response;
        response.error = "offline";
        completion(response);
    }
};

// Evaluates one line as the panel does, waiting for the rates when the line needs them.
CalcResult evaluate(const std::string& line, std::optional<double> previous, RatesService& rates) {
    std::optional<CalcResult> answer;
    QEventLoop loop;
    CalcEngine::evaluate(line, previous, rates, [&](CalcResult result) {
        answer = std::move(result);
        loop.quit();
    });
    if (!answer) loop.exec();
    return std::move(*answer);
}

}  // namespace

int runCalcCommand(int argc, char** argv) {
    const auto options = parseArguments(argc, argv);
    if (!options) return 2;
    if (options->help) {
        std::fputs(kSynopsis, stdout);
        return 0;
    }
    QCoreApplication application(argc, argv);
    const Environment& environment = ProcessEnvironment::shared();
    // The panel's saved rates and settings, read and never written.
    MemoryDefaultsStore defaults;
    JsonDefaultsStore::copySaved(AppPaths::fromEnvironment(environment).defaultsFile(), defaults);
    OfflineHttpClient offline;
    std::optional<QtHttpClient> online;
    if (!options->offline) online.emplace();
    HttpClient& http = online ? static_cast<HttpClient&>(*online) : offline;
    RatesService rates(http, defaults, SystemClock::shared(), environment);

    const auto print = [](const std::string& text) {
        std::fwrite(text.data(), 1, text.size(), stdout);
        std::fflush(stdout);
    };
    if (options->expression) {
        const CalcResult result = evaluate(*options->expression, std::nullopt, rates);
        print(options->json ? calcJsonLine(result) : calcText(result));
        return result.isError() ? 1 : 0;
    }
    // One answer per line read: in text, the answer alone; a blank line stays blank and fails nothing.
    bool failed = false;
    std::optional<double> previous;
    for (std::string line; std::getline(std::cin, line);) {
        if (CalcEngine::normalize(line).empty()) {
            if (!options->json) print("\n");
            continue;
        }
        const CalcResult result = evaluate(line, previous, rates);
        print(options->json ? calcJsonLine(result) : result.display + "\n");
        failed = failed || result.isError();
        if (result.value) previous = result.value;
    }
    return failed ? 1 : 0;
}
