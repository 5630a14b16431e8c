#include "monitors/LsofListeningPorts.h"

#include "monitors/ListeningOutput.h"

namespace vantrelle {

std::optional<std::vector<ListeningSocket>> LsofListeningPorts::list(std::string& error) {
    const ProcessResult result = m_runner.run(m_program, {"-nP", "-iTCP", "-sTCP:LISTEN", "-Fpcn"}, 10.0);
    if (!result.launched || result.timedOut) {
        error = m_program + (result.timedOut ? " timed out" : " could not be started");
        return std::nullopt;
    }
    // lsof exits with 1 when nothing listens: its output, empty or not, is still the answer.
    return parseLsofListing(result.standardOutput);
}

}  // namespace vantrelle
