// A writer for the crash test: saves notes in a loop through the real store and reports each finished
// save with one byte on standard output, until it is killed.
#include <unistd.h>

#include <string>

#include "notes/NotesStore.h"
#include "platform/VirtualScheduler.h"

int main(int argc, char** argv) {
    using namespace vantrelle;
    if (argc != 2) return 2;
    VirtualScheduler clock;
    NotificationCenter notifications;
    NotesStore store({argv[1], argv[1], clock, clock, notifications, false, {}});
    store.ensureSelection();
    for (unsigned i = 0;; ++i) {
        // Bodies of different lengths, so a kill lands at different points of the write.
        std::string body = "iteration " + std::to_string(i) + "\n";
        body.append((i % 64) * 1024, static_cast<char>('a' + i % 26));
        store.setText(std::move(body));
        store.saveNow();
        if (::write(STDOUT_FILENO, "x", 1) != 1) return 1;
        clock.advance(1);
    }
}
