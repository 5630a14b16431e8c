import QtQuick

// A full-screen gradient behind everything, for demonstrations and screenshots.
Rectangle {
    gradient: Gradient {
        GradientStop { position: 0.0; color: "#3A4A8C" }
        GradientStop { position: 0.55; color: "#7B5EA7" }
        GradientStop { position: 1.0; color: "#E38B6D" }
    }
}
