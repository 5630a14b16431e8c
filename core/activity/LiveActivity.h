#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "activity/AgentAlertKind.h"
#include "platform/Date.h"

namespace vantrelle {

// What the closed notch shows beside the camera. Two activities are equal when their kind and every
// payload value are equal (doubles exactly), so an unchanged update never reaches a view.
struct LiveActivity {
    struct Meeting {
        std::string title;
        Date start;
        bool operator==(const Meeting&) const = default;
    };
    struct Media {
        std::string title;
        std::string artist;
        bool isPlaying = false;
        bool operator==(const Media&) const = default;
    };
    struct Battery {
        std::int64_t percent = 0;
        bool charging = false;
        bool operator==(const Battery&) const = default;
    };
    struct AI {
        std::string project;
        std::int64_t tokens = 0;
        double blockProgress = 0;
        bool isActive = false;
        bool operator==(const AI&) const = default;
    };
    struct Download {
        std::string name;
        std::optional<double> progress;  // absent once finished
        bool operator==(const Download&) const = default;
    };
    struct AgentAlert {
        std::string project;
        AgentAlertKind kind = AgentAlertKind::approval;
        bool operator==(const AgentAlert&) const = default;
    };
    struct Update {
        std::string version;
        bool operator==(const Update&) const = default;
    };
    struct Pomodoro {
        bool operator==(const Pomodoro&) const = default;
    };
    struct QuickTimer {
        bool operator==(const QuickTimer&) const = default;
    };
    struct Stopwatch {
        bool operator==(const Stopwatch&) const = default;
    };

    using Payload = std::variant<Meeting, Media, Battery, AI, Download, AgentAlert, Update, Pomodoro,
                                 QuickTimer, Stopwatch>;
    Payload payload;

    template <typename T>
    [[nodiscard]] bool is() const {
        return std::holds_alternative<T>(payload);
    }
    template <typename T>
    [[nodiscard]] const T* as() const {
        return std::get_if<T>(&payload);
    }

    // The kind as a string; a change of kind animates the collapsed row, a change inside one does not.
    [[nodiscard]] std::string_view kindKey() const;

    bool operator==(const LiveActivity&) const = default;
};

}  // namespace vantrelle
